#include "platform/desktop/outlook/itemsplitter.h"

#include "platform/desktop/outlook/contentline.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>

#include <optional>
#include <set>
#include <utility>

namespace platform {

namespace {

constexpr int mostLevels = 20;
/// Of all items together: calendars with much of their own and many items would multiply.
constexpr qint64 mostBytes = 0x20000000;

/// A component directly below the top of a file or a calendar: an event, a card, a time zone...
struct Component
{
    QByteArray name;
    QByteArray uid;
    bool hasMadeUid = false;
    QByteArray change; ///< which occurrences it changes, if it does that
    QByteArray timeZone; ///< which one it is, if it is one
    QByteArray lines;
    int beginSize = 0; ///< of the first of its lines
    QSet<QByteArray> namedTimeZones;
};

struct Item
{
    OutlookFolder folder = OutlookFolder::Calendar;
    QByteArray uid;
    QByteArray calendar; ///< the lines of its calendar; of a card none
    QByteArray calendarEnd;
    QByteArray timeZones;
    QSet<QByteArray> hasTimeZones;
    QByteArray components;
    QSet<QByteArray> changes;
    bool hasSeries = false;
};

/// The time zones of a calendar.
class TimeZones
{
public:
    explicit TimeZones(const QList<Component> &components)
        : m_components(components)
    {
        for (int i = 0; i < components.size(); ++i) {
            const QByteArray &timeZone = components.at(i).timeZone;
            if (!timeZone.isEmpty() && !m_indexes.contains(timeZone))
                m_indexes.insert(timeZone, i);
        }
    }

    /// Adds those that are named to an item, in the calendar's order. Returns how many bytes they take.
    int addTo(Item &item, const QSet<QByteArray> &names) const
    {
        std::set<int> missing;
        for (const QByteArray &name : names) {
            const auto found = m_indexes.constFind(name);
            if (found != m_indexes.constEnd() && !item.hasTimeZones.contains(name))
                missing.insert(*found);
        }
        const int sizeBefore = item.timeZones.size();
        for (const int index : missing) {
            item.timeZones += m_components.at(index).lines;
            item.hasTimeZones.insert(m_components.at(index).timeZone);
        }
        return item.timeZones.size() - sizeBefore;
    }

private:
    const QList<Component> &m_components;
    QHash<QByteArray, int> m_indexes;
};

std::optional<OutlookFolder> folderOf(const QByteArray &component)
{
    if (component == "VEVENT")
        return OutlookFolder::Calendar;
    if (component == "VTODO")
        return OutlookFolder::Tasks;
    if (component == "VCARD")
        return OutlookFolder::Contacts;
    return std::nullopt;
}

/// What a RECURRENCE-ID names, in whatever way its time zone is called. A change of one occurrence does not
/// take the place of a change of all from that one on.
QByteArray namedOccurrences(const ContentLine &line)
{
    const QByteArray value = line.value().toUpper();
    QByteArray text = line.raw().toUpper();
    for (const char *fold : {"\r", "\n ", "\n\t"})
        text.replace(fold, "");
    return !value.isEmpty() && text.contains(";RANGE=") ? value + '+' : value;
}

class ItemSplitter
{
public:
    /// From now on, leaves away what changes these occurrences.
    void leaveAway(const QSet<QByteArray> &changes) { m_leftAway = changes; }

    /// What is wrong with the line, or an empty text.
    QString read(const ContentLine &line)
    {
        const QByteArray name = line.name();
        if (name == "BEGIN")
            return begin(line);
        if (m_open.isEmpty())
            return line.isBlank() ? QString() : QStringLiteral("neither a calendar nor a card begins here");
        if (name == "END")
            return end(line);
        if (isInComponent())
            addToComponent(line);
        else if (!line.isBlank() && name != "METHOD")
            m_calendar += line.raw();
        return QString();
    }

    SplitFile finish() const
    {
        SplitFile result;
        if (!m_open.isEmpty())
            result.problem = QStringLiteral("the file ends in the middle of something");
        else if (!m_hasContent)
            result.problem = QStringLiteral("there is no calendar and no card in it");
        else if (m_bytes > mostBytes)
            result.problem = QStringLiteral("its items would take more than 512 MB");
        if (!result.problem.isEmpty())
            return result;
        for (const Item &item : m_items) {
            result.items.push_back({item.folder, item.uid,
                                    item.calendar + item.timeZones + item.components + item.calendarEnd,
                                    item.changes, item.hasSeries});
        }
        result.leftOut = m_leftOut;
        return result;
    }

private:
    int levelsAbove() const { return !m_open.isEmpty() && m_open.first() == "VCALENDAR" ? 1 : 0; }
    bool isInComponent() const { return m_open.size() > levelsAbove(); }

    bool isDirectlyInComponent() const { return m_open.size() == levelsAbove() + 1; }

    QString begin(const ContentLine &line)
    {
        const QByteArray name = line.value().toUpper();
        if (m_open.isEmpty() && name != "VCALENDAR" && name != "VCARD")
            return QStringLiteral("neither a calendar nor a card begins here");
        if (m_open.size() == mostLevels)
            return QStringLiteral("too many levels");
        m_open.append(name);
        m_hasContent = true;
        if (!isInComponent()) {
            m_calendar = line.raw();
            return QString();
        }
        if (isDirectlyInComponent()) {
            m_component = Component();
            m_component.name = name;
            m_component.beginSize = line.raw().size();
        }
        m_component.lines += line.raw();
        return QString();
    }

    QString end(const ContentLine &line)
    {
        if (m_open.last() != line.value().toUpper())
            return QStringLiteral("something else should end here");
        if (!isInComponent())
            finishCalendar(line.raw());
        else if (isDirectlyInComponent())
            finishComponent(line.raw());
        else
            m_component.lines += line.raw();
        m_open.removeLast();
        return QString();
    }

    void addToComponent(const ContentLine &line)
    {
        if (isDirectlyInComponent()) {
            const QByteArray name = line.name();
            if (name == "UID" && line.value().isEmpty())
                return; // it will get one
            if (name == "UID" && m_component.uid.isEmpty())
                m_component.uid = line.value();
            if (name == "TZID" && m_component.name == "VTIMEZONE")
                m_component.timeZone = line.value();
            if (name == "RECURRENCE-ID" && m_component.name != "VCARD")
                m_component.change = namedOccurrences(line);
        }
        const QByteArray timeZone = line.timeZone();
        if (!timeZone.isEmpty())
            m_component.namedTimeZones.insert(timeZone);
        m_component.lines += line.raw();
    }

    void finishComponent(const QByteArray &endLine)
    {
        const bool isItem = folderOf(m_component.name).has_value();
        if (isItem && m_component.uid.isEmpty())
            makeUid(endLine.endsWith("\r\n") ? "\r\n" : "\n");
        m_component.lines += endLine;
        if (m_component.change.isEmpty() || !m_leftAway.contains(m_component.change))
            m_components.append(m_component);
        if (levelsAbove() == 0)
            finishCalendar(QByteArray());
    }

    void makeUid(const char *lineEnd)
    {
        QByteArray &lines = m_component.lines;
        m_component.uid = "holm-" + QCryptographicHash::hash(lines, QCryptographicHash::Sha1).toHex();
        m_component.hasMadeUid = true;
        // The second line of a card is its version; in a component, properties stand before other components.
        const int position = m_component.name == "VCARD" ? lines.size() : m_component.beginSize;
        lines.insert(position, "UID:" + m_component.uid + lineEnd);
    }

    /// Makes items of the components that have been read.
    void finishCalendar(const QByteArray &endLine)
    {
        const QList<Component> components = std::exchange(m_components, {});
        const QByteArray calendar = std::exchange(m_calendar, QByteArray());
        const TimeZones timeZones(components);
        for (const Component &component : components) {
            const auto folder = folderOf(component.name);
            const bool isCard = folder == OutlookFolder::Contacts;
            if (!folder || isCard != calendar.isEmpty()) {
                m_leftOut += component.name == "VTIMEZONE" ? 0 : 1;
                continue;
            }
            Item &item = itemFor(*folder, component.uid);
            if (item.components.isEmpty()) {
                item.calendar = calendar;
                item.calendarEnd = endLine;
                m_bytes += calendar.size() + endLine.size();
            }
            if (isCard || component.hasMadeUid)
                item.components.clear();
            item.components += component.lines;
            if (component.change.isEmpty())
                item.hasSeries = true;
            else
                item.changes.insert(component.change);
            m_bytes += component.lines.size() + timeZones.addTo(item, component.namedTimeZones);
            if (m_bytes > mostBytes)
                return;
        }
    }

    Item &itemFor(OutlookFolder folder, const QByteArray &uid)
    {
        const auto key = qMakePair(static_cast<int>(folder), uid);
        const auto found = m_indexes.constFind(key);
        if (found != m_indexes.constEnd())
            return m_items[*found];
        m_indexes.insert(key, m_items.size());
        m_items.push_back({folder, uid, {}, {}, {}, {}, {}, {}});
        return m_items.back();
    }

    QList<QByteArray> m_open; ///< the names of what has begun and not ended
    bool m_hasContent = false;
    QByteArray m_calendar; ///< the lines of the calendar so far
    QList<Component> m_components; ///< of the calendar so far
    Component m_component; ///< the one that is being read
    std::vector<Item> m_items;
    QHash<QPair<int, QByteArray>, std::size_t> m_indexes; ///< of the items, by folder and UID
    QSet<QByteArray> m_leftAway;
    qint64 m_bytes = 0;
    int m_leftOut = 0;
};

/// What is wrong with the content, or an empty text.
QString readAll(ItemSplitter &splitter, const QByteArray &content)
{
    if (content.contains('\0'))
        return QStringLiteral("it is no text file");
    ContentLineReader reader(content);
    while (const auto line = reader.next()) {
        const QString problem = splitter.read(*line);
        if (!problem.isEmpty())
            return QStringLiteral("line %1: %2").arg(reader.lineNumber()).arg(problem);
    }
    return QString();
}

} // namespace

SplitFile splitItems(const QByteArray &content)
{
    ItemSplitter splitter;
    const QString problem = readAll(splitter, content);
    return problem.isEmpty() ? splitter.finish() : SplitFile{{}, 0, problem};
}

SplitFile mergeChanges(const SplitItem &item, const SplitItem &changes)
{
    ItemSplitter splitter;
    splitter.leaveAway(changes.changes);
    QString problem = readAll(splitter, item.content);
    splitter.leaveAway({});
    if (problem.isEmpty())
        problem = readAll(splitter, changes.content);
    return problem.isEmpty() ? splitter.finish() : SplitFile{{}, 0, problem};
}

} // namespace platform
