#include "platform/desktop/regfile.h"

#include "platform/desktop/regfiletext.h"
#include "platform/desktop/registrydata.h"

namespace platform {

namespace {

const QLatin1String firstLine("Windows Registry Editor Version 5.00");

int hexDigit(QChar c)
{
    if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
        return c.unicode() - '0';
    const QChar lower = c.toLower();
    return lower >= QLatin1Char('a') && lower <= QLatin1Char('f') ? lower.unicode() - 'a' + 10 : -1;
}

class Reader
{
public:
    explicit Reader(const QString &text)
        : m_text(text)
    {
    }

    RegFileContent read()
    {
        if (!readFirstLine())
            return m_failure;
        while (m_position < m_text.size()) {
            if (!readLine())
                return m_failure;
        }
        return {m_edits, 0, QString()};
    }

private:
    using Action = RegistryEdit::Action;

    bool fail(const QString &error)
    {
        m_failure = {{}, m_line, error};
        return false;
    }

    QChar current() const { return m_position < m_text.size() ? m_text.at(m_position) : QChar(); }

    bool isAt(QLatin1String token) const
    {
        return QStringView(m_text).mid(m_position).startsWith(token, Qt::CaseInsensitive);
    }

    bool take(QLatin1String token)
    {
        if (!isAt(token))
            return false;
        m_position += token.size();
        return true;
    }

    void skipBlanks()
    {
        while (current() == QLatin1Char(' ') || current() == QLatin1Char('\t'))
            ++m_position;
    }

    bool isAtLineEnd() const
    {
        return m_position == m_text.size() || isAt(QLatin1String("\n")) || isAt(QLatin1String("\r\n"));
    }

    bool isAtEntryEnd() const { return isAtLineEnd() || current() == QLatin1Char(';'); }

    int lineEnd() const
    {
        const int lineFeed = m_text.indexOf(QLatin1Char('\n'), m_position);
        const int end = lineFeed < 0 ? m_text.size() : lineFeed;
        return end > m_position && m_text.at(end - 1) == QLatin1Char('\r') ? end - 1 : end;
    }

    // A comment may stand before it.
    bool takeLineEnd()
    {
        skipBlanks();
        if (current() == QLatin1Char(';'))
            m_position = lineEnd();
        if (!isAtLineEnd())
            return fail(QStringLiteral("there is something behind the end of the entry"));
        if (take(QLatin1String("\r\n")) || take(QLatin1String("\n")))
            ++m_line;
        return true;
    }

    // White space in the bytes of a value, where a backslash lets them go on in the next line.
    bool skipToNextByte()
    {
        skipBlanks();
        while (take(QLatin1String("\\"))) {
            if (!takeLineEnd())
                return fail(QStringLiteral("there is something behind the backslash"));
            skipBlanks();
        }
        return true;
    }

    bool readFirstLine()
    {
        if (!take(firstLine))
            return fail(QLatin1String("the first line of a registry file is \"") + firstLine
                        + QLatin1Char('"'));
        return takeLineEnd();
    }

    bool readLine()
    {
        skipBlanks();
        if (current() == QLatin1Char('['))
            return readKey() && takeLineEnd();
        if (!isAtEntryEnd())
            return readValue() && takeLineEnd();
        return takeLineEnd();
    }

    bool readKey()
    {
        const int start = m_position + 1;
        const int end = m_text.lastIndexOf(QLatin1Char(']'), lineEnd() - 1);
        if (end < start)
            return fail(QStringLiteral("the \"]\" is missing"));
        const bool isRemoval = m_text.at(start) == QLatin1Char('-');
        const QString name = m_text.mid(isRemoval ? start + 1 : start, end - start - (isRemoval ? 1 : 0));
        m_position = end + 1;

        const auto key = parseKeyPath(name);
        if (!key)
            return fail(QStringLiteral("a key's name begins with a root key such as HKEY_CURRENT_USER"));
        QString problem = problemWithKeyPath(key->path);
        if (name.endsWith(QLatin1Char('\\')))
            problem = QStringLiteral("a key's name has no backslash at its end");
        else if (isRemoval && key->path.isEmpty())
            problem = QStringLiteral("a root key cannot be removed");
        if (!problem.isEmpty())
            return fail(problem);
        m_key = isRemoval ? std::nullopt : key;
        m_edits.append({isRemoval ? Action::RemoveKey : Action::MakeKey, *key, {}});
        return true;
    }

    bool readValue()
    {
        RegistryEdit edit;
        if (!take(QLatin1String("@")) && !readQuoted(edit.value.name))
            return false;
        if (!m_key)
            return fail(
                QStringLiteral("a value needs the line of a key such as [HKEY_CURRENT_USER\\Software] "
                               "before it"));
        edit.key = *m_key;
        if (edit.value.name.size() > longestRegistryValueName)
            return fail(
                QStringLiteral("the value's name has more than %1 characters").arg(longestRegistryValueName));
        if (edit.value.name.contains(QChar(QChar::Null)))
            return fail(QStringLiteral("the value's name has a null character in it"));
        skipBlanks();
        if (!take(QLatin1String("=")))
            return fail(QStringLiteral("the \"=\" behind the value's name is missing"));
        skipBlanks();

        const bool isRemoval = take(QLatin1String("-"));
        edit.action = isRemoval ? Action::RemoveValue : Action::SetValue;
        if (!isRemoval && !readData(edit.value))
            return false;
        if (static_cast<quint32>(edit.value.data.size()) > RegistryStore::largestValue)
            return fail(QStringLiteral("the value is larger than %1 bytes").arg(RegistryStore::largestValue));
        m_edits.append(edit);
        return true;
    }

    bool readData(RegistryValue &value)
    {
        if (current() == QLatin1Char('"'))
            return readText(value);
        if (take(QLatin1String("dword:")))
            return readDword(value);
        value.type = RegistryType::binary;
        if (take(QLatin1String("hex:")))
            return readBytes(value.data);
        if (!take(QLatin1String("hex(")))
            return fail(QStringLiteral("a value is a text in quotation marks, dword:, hex:, hex(N): or -"));
        const auto type = readHexNumber(8);
        if (!type || !take(QLatin1String("):")))
            return fail(QStringLiteral("the type in hex(N): is a hexadecimal number up to ffffffff"));
        value.type = *type;
        return readBytes(value.data);
    }

    bool readText(RegistryValue &value)
    {
        QString text;
        if (!readQuoted(text))
            return false;
        value = textValue(value.name, text);
        return true;
    }

    bool readDword(RegistryValue &value)
    {
        skipBlanks();
        const auto number = readHexNumber(8);
        if (!number)
            return fail(QStringLiteral("dword: is followed by 1 to 8 hexadecimal digits"));
        value = numberValue(value.name, *number);
        return true;
    }

    bool readBytes(QByteArray &bytes)
    {
        if (!skipToNextByte())
            return false;
        if (isAtEntryEnd())
            return true;
        while (true) {
            const auto byte = readHexNumber(2);
            if (!byte)
                return fail(QStringLiteral("a byte of 1 or 2 hexadecimal digits is missing"));
            bytes.append(static_cast<char>(*byte));
            if (!skipToNextByte())
                return false;
            if (isAtEntryEnd())
                return true;
            if (!take(QLatin1String(",")))
                return fail(QStringLiteral("bytes are 1 or 2 hexadecimal digits, with commas between"));
            if (!skipToNextByte())
                return false;
        }
    }

    std::optional<quint32> readHexNumber(int mostDigits)
    {
        quint32 number = 0;
        int digits = 0;
        for (int digit = hexDigit(current()); digit >= 0; digit = hexDigit(current())) {
            if (++digits > mostDigits)
                return std::nullopt;
            number = number * 16 + static_cast<quint32>(digit);
            ++m_position;
        }
        return digits > 0 ? std::make_optional(number) : std::nullopt;
    }

    bool readQuoted(QString &text)
    {
        const int firstLineOfText = m_line;
        if (!take(QLatin1String("\"")))
            return fail(QStringLiteral(
                "a line is a key in brackets, a value's name in quotation marks or @, or a comment after ;"));
        while (m_position < m_text.size()) {
            QChar c = m_text.at(m_position++);
            if (c == QLatin1Char('"'))
                return true;
            if (c == QLatin1Char('\n'))
                ++m_line;
            if (c == QLatin1Char('\\')) {
                c = current();
                if (c != QLatin1Char('\\') && c != QLatin1Char('"'))
                    return fail(QStringLiteral("a backslash in a text is written as two"));
                ++m_position;
            }
            text.append(c);
        }
        m_line = firstLineOfText;
        return fail(QStringLiteral("the text that begins here has no end: a quotation mark is missing"));
    }

    const QString &m_text;
    int m_position = 0;
    int m_line = 1;
    std::optional<RegistryKeyPath> m_key; ///< that of the last key line; none after a removal
    QList<RegistryEdit> m_edits;
    RegFileContent m_failure;
};

} // namespace

RegFileContent parseRegFile(const QByteArray &bytes)
{
    const RegFileText decoded = decodeRegFile(bytes);
    if (!decoded.error.isEmpty())
        return {{}, decoded.errorLine, decoded.error};
    return Reader(decoded.text).read();
}

} // namespace platform
