#include "platform/desktop/outlook/contentline.h"

#include <cstring>

namespace platform {

namespace {

std::string_view withoutLineEnd(std::string_view line)
{
    for (const char character : {'\n', '\r'}) {
        if (!line.empty() && line.back() == character)
            line.remove_suffix(1);
    }
    return line;
}

bool isQuotedPrintable(std::string_view line)
{
    const std::string_view parameters = line.substr(0, line.find(':'));
    return QByteArray::fromRawData(parameters.data(), static_cast<int>(parameters.size()))
        .toUpper()
        .contains("QUOTED-PRINTABLE");
}

} // namespace

ContentLine::ContentLine(const QByteArray &raw, const QByteArray &unfolded)
    : m_raw(raw.endsWith('\n') ? raw : raw + "\r\n")
    , m_unfolded(unfolded)
{
}

int ContentLine::find(const char *anyOf, int from) const
{
    bool isQuoted = false;
    for (int i = from; i < m_unfolded.size(); ++i) {
        const char character = m_unfolded.at(i);
        if (character == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted && character != '\0' && std::strchr(anyOf, character))
            return i;
    }
    return m_unfolded.size();
}

QByteArray ContentLine::name() const
{
    const QByteArray name = m_unfolded.left(find(";:", 0));
    return name.mid(name.lastIndexOf('.') + 1).trimmed().toUpper();
}

QByteArray ContentLine::value() const
{
    return m_unfolded.mid(find(":", 0) + 1).trimmed();
}

QByteArray ContentLine::timeZone() const
{
    int start = find(";:", 0);
    while (start < m_unfolded.size() && m_unfolded.at(start) == ';') {
        const int end = find(";:", start + 1);
        const QByteArray parameter = m_unfolded.mid(start + 1, end - start - 1);
        const int equals = parameter.indexOf('=');
        if (parameter.left(equals).trimmed().toUpper() == "TZID")
            return parameter.mid(equals + 1).replace('"', "").trimmed();
        start = end;
    }
    return QByteArray();
}

ContentLineReader::ContentLineReader(const QByteArray &content)
    : m_content(content)
    , m_position(content.startsWith("\xEF\xBB\xBF") ? 3 : 0)
{
}

std::optional<ContentLine> ContentLineReader::next()
{
    if (m_position >= m_content.size())
        return std::nullopt;
    const int start = m_position;
    m_lineNumber = m_nextLineNumber;
    std::string_view line = withoutLineEnd(takePhysicalLine());
    const bool mayEndInEquals = isQuotedPrintable(line);
    QByteArray unfolded(line.data(), static_cast<int>(line.size()));
    for (;;) {
        // In vCard 2.1 a text of this encoding goes on behind "=", with or without space.
        const bool goesOn = mayEndInEquals && !line.empty() && line.back() == '=';
        if (m_position >= m_content.size() || (!goesOn && !isContinued()))
            break;
        line = withoutLineEnd(takePhysicalLine());
        const std::string_view added = goesOn || line.empty() ? line : line.substr(1);
        unfolded.append(added.data(), static_cast<int>(added.size()));
    }
    return ContentLine(m_content.mid(start, m_position - start), unfolded);
}

std::string_view ContentLineReader::takePhysicalLine()
{
    const int end = m_content.indexOf('\n', m_position);
    const int size = (end < 0 ? m_content.size() : end + 1) - m_position;
    const std::string_view line(m_content.constData() + m_position, static_cast<std::size_t>(size));
    m_position += size;
    ++m_nextLineNumber;
    return line;
}

/// Whether the next line belongs to the one before.
bool ContentLineReader::isContinued() const
{
    const char first = m_content.at(m_position);
    return first == ' ' || first == '\t';
}

} // namespace platform
