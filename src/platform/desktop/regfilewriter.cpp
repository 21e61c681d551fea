#include "platform/desktop/regfile.h"

#include "platform/desktop/registrydata.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr int widestLine = 80;

bool isWellFormed(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        if (!text.at(i).isHighSurrogate() || i + 1 == text.size() || !text.at(i + 1).isLowSurrogate())
            return false;
        ++i;
    }
    return true;
}

bool fitsUtf8(const RegistryEdit &edit)
{
    return isWellFormed(edit.key.path) && isWellFormed(edit.value.name);
}

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control;
}

QString quoted(const QString &text)
{
    QString result;
    result.reserve(text.size() + 2);
    result += QLatin1Char('"');
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            result += QLatin1Char('\\');
        result += c;
    }
    return result + QLatin1Char('"');
}

class Writer
{
public:
    explicit Writer(RegFileEncoding encoding)
        : m_isUtf16(encoding == RegFileEncoding::Utf16)
        , m_lineEnd(QLatin1String(m_isUtf16 ? "\r\n" : "\n"))
    {
        if (m_isUtf16)
            m_text = QChar(QChar::ByteOrderMark);
        m_text += QLatin1String("Windows Registry Editor Version 5.00") + m_lineEnd;
    }

    void add(const RegistryEdit &edit)
    {
        switch (edit.action) {
        case RegistryEdit::Action::MakeKey:
            return addKey(edit.key);
        case RegistryEdit::Action::RemoveKey:
            m_text += m_lineEnd + QLatin1String("[-") + toString(edit.key) + QLatin1Char(']') + m_lineEnd;
            return m_key.reset();
        case RegistryEdit::Action::SetValue:
        case RegistryEdit::Action::RemoveValue:
            if (!m_key || m_key->root != edit.key.root || m_key->path != edit.key.path)
                addKey(edit.key);
            addValue(edit);
        }
    }

    /// What has been added since the last call.
    QByteArray takeBytes()
    {
        const QString text = std::exchange(m_text, {});
        if (!m_isUtf16)
            return text.toUtf8();
        QByteArray bytes(text.size() * 2, Qt::Uninitialized);
        qToLittleEndian<quint16>(text.utf16(), text.size(), bytes.data());
        return bytes;
    }

private:
    void addKey(const RegistryKeyPath &key)
    {
        m_text += m_lineEnd + QLatin1Char('[') + toString(key) + QLatin1Char(']') + m_lineEnd;
        m_key = key;
    }

    void addValue(const RegistryEdit &edit)
    {
        const RegistryValue &value = edit.value;
        const QString start =
            (value.name.isEmpty() ? QStringLiteral("@") : quoted(value.name)) + QLatin1Char('=');
        m_text += start;
        if (edit.action == RegistryEdit::Action::RemoveValue)
            m_text += QLatin1Char('-');
        else if (isPlainText(value))
            m_text += quoted(toUtf16(value.data).chopped(1));
        else if (const auto number = numberIn(value))
            m_text += QStringLiteral("dword:%1").arg(*number, 8, 16, QLatin1Char('0'));
        else
            addBytes(value, start.size());
        m_text += m_lineEnd;
    }

    bool isPlainText(const RegistryValue &value) const
    {
        if (value.type != RegistryType::string || value.data.isEmpty() || value.data.size() % 2 != 0)
            return false;
        const QString text = toUtf16(value.data);
        return text.indexOf(QChar(QChar::Null)) == text.size() - 1
            && std::none_of(text.cbegin(), text.cend() - 1, isControl) && (m_isUtf16 || isWellFormed(text));
    }

    void addBytes(const RegistryValue &value, int column)
    {
        constexpr int byteWidth = 3;
        const QString type = value.type == RegistryType::binary
            ? QStringLiteral("hex:")
            : QStringLiteral("hex(%1):").arg(value.type, 0, 16);
        const QByteArray digits = value.data.toHex();
        m_text += type;
        column += type.size();
        for (int i = 0; i < digits.size(); i += 2) {
            m_text += QLatin1String(digits.constData() + i, 2);
            column += byteWidth;
            if (i + 2 == digits.size())
                break;
            m_text += QLatin1Char(',');
            // The next byte, its comma and the backslash have to fit.
            if (column + byteWidth + 1 > widestLine) {
                m_text += QLatin1Char('\\') + m_lineEnd + QLatin1String("  ");
                column = 2;
            }
        }
    }

    const bool m_isUtf16;
    const QString m_lineEnd;
    std::optional<RegistryKeyPath> m_key; ///< that of the last key line
    QString m_text;
};

} // namespace

void toRegFile(const QList<RegistryEdit> &edits, RegFileEncoding encoding,
               const std::function<void(const QByteArray &bytes)> &write)
{
    const bool fits = std::all_of(edits.cbegin(), edits.cend(), fitsUtf8);
    Writer writer(fits ? encoding : RegFileEncoding::Utf16);
    write(writer.takeBytes());
    for (const RegistryEdit &edit : edits) {
        writer.add(edit);
        write(writer.takeBytes());
    }
}

QByteArray toRegFile(const QList<RegistryEdit> &edits, RegFileEncoding encoding)
{
    QByteArray file;
    toRegFile(edits, encoding, [&file](const QByteArray &bytes) { file += bytes; });
    return file;
}

} // namespace platform
