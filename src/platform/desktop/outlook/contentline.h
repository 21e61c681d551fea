#pragma once

#include <QtCore/QByteArray>

#include <optional>
#include <string_view>

namespace platform {

/// A line of an iCalendar or vCard file ("NAME;PARAMETER=...:VALUE"), put together again if it was folded.
/// One that makes no sense has an empty name, value or parameter.
class ContentLine
{
public:
    /// @p raw is as it stands in the file, @p unfolded without folds and line end.
    ContentLine(const QByteArray &raw, const QByteArray &unfolded);

    /// As it stands in the file, with its folds and a line end.
    QByteArray raw() const { return m_raw; }
    bool isBlank() const { return m_unfolded.trimmed().isEmpty(); }

    /// In upper case, without the group that a card may put in front of it.
    QByteArray name() const;
    /// Without the space around it.
    QByteArray value() const;
    /// The value of the parameter TZID, without quotes.
    QByteArray timeZone() const;

private:
    /// Where the character stands behind @p from and outside of quotes, else the line's end.
    int find(const char *anyOf, int from) const;

    QByteArray m_raw;
    QByteArray m_unfolded;
};

/// Goes through the lines of a file's content, whatever it holds.
class ContentLineReader
{
public:
    /// The content has to live as long.
    explicit ContentLineReader(const QByteArray &content);

    std::optional<ContentLine> next();

    /// In the file, counted from 1: that of the line that next() gave, the first one if it was folded.
    int lineNumber() const { return m_lineNumber; }

private:
    std::string_view takePhysicalLine();
    bool isContinued() const;

    const QByteArray &m_content;
    int m_position = 0;
    int m_lineNumber = 0;
    int m_nextLineNumber = 1;
};

} // namespace platform
