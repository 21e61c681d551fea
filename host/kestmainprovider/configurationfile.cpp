#include "configurationfile.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <cctype>

namespace {

constexpr int codeLength = 4;
constexpr int hexadecimal = 16;

bool isCodeAt(const QString &text, int index)
{
    if (text.at(index) != QLatin1Char('%') || index + codeLength >= text.size())
        return false;
    const QByteArray code = text.mid(index + 1, codeLength).toLatin1();
    return std::all_of(code.begin(), code.end(),
                       [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; });
}

bool isLoneSurrogateAt(const QString &text, int index)
{
    const bool afterHigh = index > 0 && text.at(index - 1).isHighSurrogate();
    const bool beforeLow = index + 1 < text.size() && text.at(index + 1).isLowSurrogate();
    const QChar c = text.at(index);
    return (c.isHighSurrogate() && !beforeLow) || (c.isLowSurrogate() && !afterHigh);
}

template <typename IsMisread>
QString escaped(const QString &text, IsMisread isMisread)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isAtEnd = i == 0 || i == text.size() - 1;
        const bool isControl = c.unicode() < QLatin1Char(' ').unicode();
        if (isControl || (isAtEnd && c.isSpace()) || isLoneSurrogateAt(text, i) || isMisread(i))
            result += QStringLiteral("%%1").arg(c.unicode(), codeLength, hexadecimal, QLatin1Char('0'));
        else
            result += c;
    }
    return result;
}

QString escapedName(const QString &name)
{
    const QString misread = QStringLiteral("%/\\=[];#");
    return name.isEmpty() ? QStringLiteral("%")
                          : escaped(name, [&](int index) { return misread.contains(name.at(index)); });
}

QString escapedValue(const QString &value)
{
    return escaped(value, [&value](int index) { return isCodeAt(value, index); });
}

QString unescaped(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (isCodeAt(text, i)) {
            result += QChar(text.midRef(i + 1, codeLength).toUShort(nullptr, hexadecimal));
            i += codeLength;
        } else {
            result += text.at(i);
        }
    }
    return result;
}

QString unescapedName(const QString &text)
{
    const QString name = text.trimmed();
    return name == QLatin1String("%") ? QString() : unescaped(name);
}

} // namespace

ConfigurationFile::Content ConfigurationFile::parse(const QByteArray &bytes)
{
    Content content;
    QString section;
    const QStringList lines = QString::fromUtf8(bytes.constData(), bytes.size()).split(QLatin1Char('\n'));
    for (const QString &fullLine : lines) {
        const QString line = fullLine.trimmed();
        const int equals = line.indexOf(QLatin1Char('='));
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')) || line.startsWith(QLatin1Char('#')))
            continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']')))
            section = unescapedName(line.mid(1, line.size() - 2));
        else if (equals > 0)
            content.values.insert(path(section, unescapedName(line.left(equals))),
                                  unescaped(line.mid(equals + 1).trimmed()));
        else
            content.isDamaged = true;
    }
    return content;
}

QByteArray ConfigurationFile::toBytes(const Values &values)
{
    QString text;
    QString section;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const QString itsSection = value.key().section(QLatin1Char('/'), 0, 0);
        if (itsSection != section)
            text += QLatin1Char('[') + itsSection + QLatin1String("]\n");
        section = itsSection;
        text += value.key().section(QLatin1Char('/'), 1) + QLatin1Char('=') + escapedValue(*value)
            + QLatin1Char('\n');
    }
    return text.toUtf8();
}

QString ConfigurationFile::prefix(const QString &section)
{
    return escapedName(section) + QLatin1Char('/');
}

QString ConfigurationFile::path(const QString &section, const QString &key)
{
    return prefix(section) + escapedName(key);
}
