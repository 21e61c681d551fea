#include "registrytext.h"

#include <platform/desktop/registrydata.h>

#include <algorithm>
#include <iterator>

namespace {

QString escaped(QChar c)
{
    if (c == QLatin1Char('\n'))
        return QStringLiteral("\\n");
    if (c == QLatin1Char('\r'))
        return QStringLiteral("\\r");
    if (c == QLatin1Char('\t'))
        return QStringLiteral("\\t");
    return QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
}

} // namespace

QString toReadableText(const platform::RegistryValue &value)
{
    if (value.type == platform::RegistryType::string) {
        QString text = platform::toUtf16(value.data);
        if (text.endsWith(QChar(QChar::Null)))
            text.chop(1);
        return text;
    }
    if (const auto number = platform::numberIn(value))
        return QString::number(*number);
    return QString::fromLatin1(value.data.toHex(' '));
}

QString typeName(quint32 type)
{
    static const char *const names[] = {"REG_NONE",
                                        "REG_SZ",
                                        "REG_EXPAND_SZ",
                                        "REG_BINARY",
                                        "REG_DWORD",
                                        "REG_DWORD_BIG_ENDIAN",
                                        "REG_LINK",
                                        "REG_MULTI_SZ",
                                        "REG_RESOURCE_LIST",
                                        "REG_FULL_RESOURCE_DESCRIPTOR",
                                        "REG_RESOURCE_REQUIREMENTS_LIST",
                                        "REG_QWORD"};
    return type < std::size(names) ? QLatin1String(names[type]) : QString::number(type);
}

QString onOneLine(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            result += text.midRef(i++, 2);
        else if (c.isSurrogate() || breaksLine(c))
            result += escaped(c);
        else
            result += c;
    }
    return result;
}

bool breaksLine(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}
