#include "platform/desktop/outlook/calendarfile.h"
#include "platform/desktop/outlook/contentline.h"

#include <KCalendarCore/Exceptions>
#include <KCalendarCore/ICalFormat>
#include <KCalendarCore/MemoryCalendar>

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QTimeZone>

#include <algorithm>

namespace platform {

namespace {

constexpr int maxDepth = 16;
constexpr int maxComponents = 50000;
constexpr int maxTimeZones = 50;
constexpr int maxTimeZoneRules = 200;
constexpr int maxCombinations = 500;
constexpr int maxLineLength = 512 * 1024; // the time to read one grows with its square

/// What has to be known of a file before the library may have it.
class CalendarOutline
{
public:
    explicit CalendarOutline(const QByteArray &content)
    {
        ContentLineReader lines(content);
        while (const auto line = lines.next()) {
            take(*line);
            if (!m_problem.isEmpty())
                return;
        }
        if (!m_isCalendar)
            m_problem = QStringLiteral("this is no calendar");
        else if (m_depth > 0)
            m_problem = QStringLiteral("the file ends in the middle");
    }

    const QString &problem() const { return m_problem; }

    /// Whether an entry has that UID. The library makes up one for those that have none.
    bool hasUid(const QString &uid) const { return m_uids.contains(uid.toUtf8()); }

    bool definesTimeZone(const QByteArray &name) const { return m_timeZoneNames.contains(name); }

private:
    void take(const ContentLine &line)
    {
        const QByteArray name = line.name();
        if (name == "BEGIN")
            begin(line.value().toUpper());
        else if (name == "END")
            end();
        else if (name == "UID")
            m_uids.insert(line.value());
        else if (name == "TZID" && m_timeZoneDepth > 0)
            m_timeZoneNames.insert(line.value());
        else if (name == "RRULE" || name == "EXRULE")
            takeRule(line.value().toUpper());
    }

    void takeRule(const QByteArray &rule)
    {
        if (m_timeZoneDepth > 0 && !isYearly(rule))
            m_problem = QStringLiteral("the rules of a time zone are not yearly");
        else if (m_timeZoneDepth > 0 && ++m_timeZoneRules > maxTimeZoneRules)
            m_problem = QStringLiteral("the time zones have too many rules");
        else if (combinationsOf(rule) > maxCombinations)
            m_problem = QStringLiteral("a rule combines too many numbers");
    }

    /// How many dates the library tries for each period of a rule.
    static qint64 combinationsOf(const QByteArray &rule)
    {
        qint64 combinations = 1;
        for (const QByteArray &part : rule.split(';')) {
            if (part.startsWith("BY"))
                combinations = std::min<qint64>(combinations, maxCombinations + 1) * (part.count(',') + 1);
        }
        return combinations;
    }

    void begin(const QByteArray &component)
    {
        if (m_depth == 0 && component != "VCALENDAR")
            m_problem = QStringLiteral("this is no calendar");
        m_isCalendar = true;
        ++m_depth;
        if (component == "VTIMEZONE" && m_timeZoneDepth == 0) {
            m_timeZoneDepth = m_depth;
            ++m_timeZones;
        }
        if (m_depth > maxDepth || ++m_components > maxComponents || m_timeZones > maxTimeZones)
            m_problem = QStringLiteral("the calendar has too many parts");
    }

    void end()
    {
        if (m_depth == 0)
            m_problem = QStringLiteral("a part of the calendar ends without having begun");
        if (m_depth == m_timeZoneDepth)
            m_timeZoneDepth = 0;
        --m_depth;
    }

    /// Whether a rule gives but a few dates a year, and those in one month.
    static bool isYearly(const QByteArray &rule)
    {
        const QList<QByteArray> parts = rule.split(';');
        const auto isHarmless = [](const QByteArray &part) {
            static const QByteArray names[] = {"BYDAY", "BYMONTH", "INTERVAL", "UNTIL", "COUNT", "WKST"};
            const QByteArray name = part.left(part.indexOf('='));
            return part == "FREQ=YEARLY" || (name == "BYMONTHDAY" && part.count(',') < 7)
                || (std::count(std::begin(names), std::end(names), name) > 0 && !part.contains(','));
        };
        const bool picksDays = rule.contains("BYDAY") || rule.contains("BYMONTHDAY");
        return parts.contains("FREQ=YEARLY") && std::all_of(parts.begin(), parts.end(), isHarmless)
            && (!picksDays || rule.contains("BYMONTH="));
    }

    QSet<QByteArray> m_uids;
    QSet<QByteArray> m_timeZoneNames;
    QString m_problem;
    int m_depth = 0;
    int m_timeZoneDepth = 0;
    int m_components = 0;
    int m_timeZones = 0;
    int m_timeZoneRules = 0;
    bool m_isCalendar = false;
};

/// Writes lines with dates in a way in which the library loses none.
class DateMender
{
public:
    explicit DateMender(const CalendarOutline &outline)
        : m_outline(outline)
    {
    }

    QByteArray mended(const QByteArray &content)
    {
        QByteArray result;
        result.reserve(content.size());
        ContentLineReader lines(content);
        while (const auto line = lines.next())
            result += mended(*line);
        return result;
    }

private:
    QByteArray mended(const ContentLine &line)
    {
        static const QByteArray dates[] = {"DTSTART", "DTEND", "DUE", "RECURRENCE-ID", "EXDATE", "RDATE"};
        const QByteArray name = line.name();
        if (name == "BEGIN")
            enter(line.value().toUpper());
        const bool isDate = std::find(std::begin(dates), std::end(dates), name) != std::end(dates);
        QByteArray head = isDate && isEntry() ? headOf(line) : QByteArray();
        if (head.isEmpty())
            return line.raw();
        const QByteArray zoneName = knownNameOf(line.timeZone());
        const bool isList = name == "EXDATE" || name == "RDATE";
        QList<QByteArray> values = isList ? line.value().split(',') : QList<QByteArray>{line.value()};
        bool needsZone = !zoneName.isEmpty();
        for (QByteArray &value : values) {
            const QByteArray moved = movedOutOfGap(value, zoneName);
            // The rules of an event go on from the time that the clocks leave out.
            if (name == "DTSTART" && m_component == "VEVENT")
                needsZone = needsZone || moved != value;
            else
                value = moved;
        }
        if (needsZone)
            nameZone(head, line.timeZone(), zoneName.isEmpty() ? QTimeZone::systemTimeZoneId() : zoneName);
        return inPieces(head, values);
    }

    void enter(const QByteArray &component)
    {
        if (component == "VEVENT" || component == "VTODO" || component == "VTIMEZONE")
            m_component = component;
    }

    bool isEntry() const { return m_component == "VEVENT" || m_component == "VTODO"; }

    /// What is in front of the value, unfolded. Empty if there is no such thing.
    static QByteArray headOf(const ContentLine &line)
    {
        QByteArray text = line.raw();
        for (const char *fold : {"\r\n ", "\r\n\t", "\n ", "\n\t"})
            text.replace(fold, "");
        text = text.trimmed();
        const QByteArray value = line.value();
        const QByteArray head = text.chopped(value.size());
        return text.endsWith(value) && head.endsWith(':') ? head : QByteArray();
    }

    /// The name under which the time zone can be looked up. Empty for one of which nothing is known: it is
    /// the machine's then.
    QByteArray knownNameOf(const QByteArray &name)
    {
        const auto known = m_knownNames.constFind(name);
        if (known != m_knownNames.constEnd())
            return *known;
        const QByteArray translated = QTimeZone::windowsIdToDefaultIanaId(name);
        QByteArray result = translated.isEmpty() ? name : translated;
        if (!m_outline.definesTimeZone(name) && !zone(result).isValid())
            result.clear();
        m_knownNames.insert(name, result);
        return result;
    }

    /// Invalid for one that is known to the calendar alone.
    QTimeZone zone(const QByteArray &name)
    {
        const auto known = m_zones.constFind(name);
        if (known != m_zones.constEnd())
            return *known;
        return *m_zones.insert(name, name.isEmpty() ? QTimeZone::systemTimeZone() : QTimeZone(name));
    }

    void nameZone(QByteArray &head, const QByteArray &before, const QByteArray &name) const
    {
        const int position = head.indexOf(before);
        if (before.isEmpty())
            head.insert(head.size() - 1, ";TZID=" + name);
        else if (position >= 0 && !m_outline.definesTimeZone(before))
            head.replace(position, before.size(), name);
    }

    /// @p value may be a period, of which only the start is looked at.
    QByteArray movedOutOfGap(const QByteArray &value, const QByteArray &zoneName)
    {
        constexpr int dateSize = 8;
        constexpr int size = 15;
        const bool isLocal = value.size() == size || (value.size() > size && value.at(size) == '/');
        if (!isLocal || value.at(dateSize) != 'T')
            return value;
        const auto number = [&value](int from, int digits) { return value.mid(from, digits).toInt(); };
        const QDate date(number(0, 4), number(4, 2), number(6, 2));
        const QTime time(number(9, 2), number(11, 2), number(13, 2));
        const QTimeZone timeZone = zone(zoneName);
        if (!date.isValid() || !time.isValid() || !timeZone.isValid())
            return value;
        const QDateTime moment(date, time, timeZone);
        if (moment.isValid())
            return value;
        const QString format = QStringLiteral("yyyyMMdd'T'HHmmss");
        return platform::movedOutOfGap(moment).toString(format).toLatin1() + value.mid(size);
    }

    /// The library reads some 500 values of a line.
    static QByteArray inPieces(const QByteArray &head, const QList<QByteArray> &values)
    {
        constexpr int most = 100;
        const int size = head.size() < maxSplitHead ? most : values.size();
        QByteArray result;
        for (int i = 0; i < values.size(); i += size)
            result += head + values.mid(i, size).join(',') + "\r\n";
        return result;
    }

    static constexpr int maxSplitHead = 200;

    const CalendarOutline &m_outline;
    QByteArray m_component;
    QHash<QByteArray, QByteArray> m_knownNames;
    QHash<QByteArray, QTimeZone> m_zones;
};

/// Takes what is read as it comes. The library's own calendars keep no order.
class EntryCollector : public KCalendarCore::MemoryCalendar
{
public:
    EntryCollector(CalendarFile &file, const CalendarOutline &outline)
        : MemoryCalendar(QTimeZone::systemTimeZone())
        , m_file(file)
        , m_outline(outline)
    {
    }

    bool addEvent(const KCalendarCore::Event::Ptr &event) override
    {
        forgetInventedUid(*event);
        m_file.events.append(event);
        return true;
    }

    bool addTodo(const KCalendarCore::Todo::Ptr &todo) override
    {
        forgetInventedUid(*todo);
        m_file.todos.append(todo);
        return true;
    }

private:
    void forgetInventedUid(KCalendarCore::Incidence &entry) const
    {
        static const QRegularExpression invented(QStringLiteral("^[0-9a-f]{32}$"));
        if (invented.match(entry.uid()).hasMatch() && !m_outline.hasUid(entry.uid()))
            entry.setUid(QString());
    }

    CalendarFile &m_file;
    const CalendarOutline &m_outline;
};

QString problemOf(const KCalendarCore::Exception *exception)
{
    using KCalendarCore::Exception;
    switch (exception ? exception->code() : Exception::ParseErrorUnableToParse) {
    case Exception::CalVersion1:
    case Exception::CalVersion2:
    case Exception::CalVersionUnknown:
    case Exception::VersionPropertyMissing:
        return QStringLiteral("the calendar is not of version 2.0");
    default:
        return QStringLiteral("the calendar has errors");
    }
}

bool hasLongLine(const QByteArray &content)
{
    for (int start = 0; start < content.size();) {
        const int lineFeed = content.indexOf('\n', start);
        const int end = lineFeed < 0 ? content.size() : lineFeed;
        if (end - start > maxLineLength)
            return true;
        start = end + 1;
    }
    return false;
}

} // namespace

CalendarFile readCalendarFile(const QByteArray &content)
{
    CalendarFile file;
    if (content.size() > maxCalendarFileSize) {
        file.problem = QStringLiteral("the file is too large");
        return file;
    }
    if (hasLongLine(content)) {
        file.problem = QStringLiteral("a line of the calendar is too long");
        return file;
    }
    const CalendarOutline outline(content);
    file.problem = outline.problem();
    if (!file.problem.isEmpty())
        return file;
    KCalendarCore::ICalFormat format;
    const auto collector = QSharedPointer<EntryCollector>::create(file, outline);
    if (!format.fromRawString(collector, DateMender(outline).mended(content)))
        return {{}, {}, problemOf(format.exception())};
    return file;
}

QDateTime movedOutOfGap(const QDateTime &moment)
{
    if (moment.isValid() || !moment.date().isValid() || !moment.time().isValid()
        || moment.timeSpec() != Qt::TimeZone || !moment.timeZone().isValid())
        return moment;
    const QTimeZone zone = moment.timeZone();
    const QDateTime clock(moment.date(), moment.time(), Qt::UTC);
    return clock.addSecs(-zone.offsetFromUtc(clock.addDays(-1))).toTimeZone(zone);
}

} // namespace platform
