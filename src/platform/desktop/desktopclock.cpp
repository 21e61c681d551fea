#include "platform/desktop/desktopclock.h"

#include "platform/desktop/datepicture.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

#include <algorithm>
#include <string_view>

namespace platform {

namespace {

using Tokens = std::vector<PictureToken>;

/// What the runs of a picture's letters stand for.
class RunTexts
{
public:
    virtual ~RunTexts() = default;

    /// The text for the run at @p token, which is one of @p tokens and no literal text.
    virtual QString text(const Tokens &tokens, Tokens::const_iterator token) const = 0;

protected:
    /// Runs of more than two letters are no wider.
    static QString number(int value, std::size_t length)
    {
        return QStringLiteral("%1").arg(value, length > 1 ? 2 : 1, 10, QLatin1Char('0'));
    }
};

class DateTexts : public RunTexts
{
public:
    explicit DateTexts(const QDate &date)
        : m_date(date)
    {
    }

    QString text(const Tokens &tokens, Tokens::const_iterator token) const override
    {
        const std::size_t length = token->text.size();
        const auto nameLength = length > 3 ? QLocale::LongFormat : QLocale::ShortFormat;
        switch (token->letter) {
        case u'd':
            return length > 2 ? m_locale.standaloneDayName(m_date.dayOfWeek(), nameLength)
                              : number(m_date.day(), length);
        case u'M':
            if (length <= 2)
                return number(m_date.month(), length);
            return isBesideDay(tokens, token) ? m_locale.monthName(m_date.month(), nameLength)
                                              : m_locale.standaloneMonthName(m_date.month(), nameLength);
        case u'y':
            return length > 2 ? QString::number(m_date.year()) : number(m_date.year() % 100, 2);
        default: // the era, which this calendar does without
            return QString();
        }
    }

private:
    /// Whether the next d before or after is the number of a day: many languages put the month's name into
    /// another case then.
    static bool isBesideDay(const Tokens &tokens, Tokens::const_iterator month)
    {
        const auto isDay = [](const PictureToken &token) { return token.letter == u'd'; };
        const auto before = std::find_if(std::make_reverse_iterator(month), tokens.rend(), isDay);
        const auto after = std::find_if(month, tokens.end(), isDay);
        return (before != tokens.rend() && before->text.size() <= 2)
            || (after != tokens.end() && after->text.size() <= 2);
    }

    const QDate m_date;
    const QLocale m_locale;
};

class TimeTexts : public RunTexts
{
public:
    explicit TimeTexts(const QTime &time)
        : m_time(time)
    {
    }

    QString text(const Tokens &, Tokens::const_iterator token) const override
    {
        const std::size_t length = token->text.size();
        switch (token->letter) {
        case u'H':
            return number(m_time.hour(), length);
        case u'h':
            return number((m_time.hour() + 11) % 12 + 1, length);
        case u'm':
            return number(m_time.minute(), length);
        case u's':
            return number(m_time.second(), length);
        default: {
            const QString half = m_time.hour() < 12 ? m_locale.amText() : m_locale.pmText();
            return length > 1 ? half : half.left(1);
        }
        }
    }

private:
    const QTime m_time;
    const QLocale m_locale;
};

std::optional<std::u16string> toText(const std::u16string &picture, std::u16string_view letters,
                                     const RunTexts &texts, int capacity)
{
    const Tokens tokens = readPicture(picture.c_str(), letters);
    std::u16string text;
    for (auto token = tokens.begin(); token != tokens.end(); ++token) {
        if (token->letter)
            text += texts.text(tokens, token).toStdU16String();
        else
            text += token->text;
        if (capacity < 0 || text.size() >= static_cast<std::size_t>(capacity))
            return std::nullopt;
    }
    return capacity > 0 ? std::optional(text) : std::nullopt;
}

} // namespace

SystemTime DesktopClock::localTime()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime time = now.time();
    const auto narrow = [](int value) { return static_cast<std::uint16_t>(value); };
    return {narrow(date.year()), narrow(date.month()),  narrow(date.dayOfWeek() % 7), narrow(date.day()),
            narrow(time.hour()), narrow(time.minute()), narrow(time.second()),        narrow(time.msec())};
}

std::optional<std::u16string> DesktopClock::dateText(const SystemTime &time, const std::u16string &picture,
                                                     int capacity)
{
    constexpr int firstYear = 1601; // where the system's count of time begins, and where it overflows
    constexpr int lastYear = 30827;
    const QDate date(time.year, time.month, time.day);
    if (!date.isValid() || date.year() < firstYear || date.year() > lastYear)
        return std::nullopt;
    return toText(picture, u"dMyg", DateTexts(date), capacity);
}

std::optional<std::u16string> DesktopClock::timeText(const SystemTime &time, const std::u16string &picture,
                                                     int capacity)
{
    const QTime timeOfDay(time.hour, time.minute, time.second, time.milliseconds);
    if (!timeOfDay.isValid())
        return std::nullopt;
    return toText(picture, u"hHmst", TimeTexts(timeOfDay), capacity);
}

} // namespace platform
