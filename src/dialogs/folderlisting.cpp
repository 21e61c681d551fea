#include "dialogs/folderlisting.h"

#include "platform/platform.h"
#include "platform/shell.h"

#include <QtCore/QRegExp>

#include <algorithm>
#include <vector>

namespace {

// No name is that long, whatever a set such as [a-z] stands for.
constexpr int longestPattern = 4096;

/// Stars in a set stand for themselves.
QStringList cutAtStars(const QString &pattern)
{
    QStringList pieces(QString(QLatin1String("")));
    bool isInSet = false;
    for (const QChar c : pattern) {
        isInSet = c == QLatin1Char('[') || (isInSet && c != QLatin1Char(']'));
        if (c == QLatin1Char('*') && !isInSet)
            pieces.append(QString());
        else
            pieces.last() += c;
    }
    return pieces;
}

/// A wildcard, cut at its stars: one automaton for all of it would take time by the square of their number.
class Wildcard
{
public:
    explicit Wildcard(const QString &pattern)
    {
        for (const QString &piece : cutAtStars(pattern))
            m_pieces.emplace_back(piece, Qt::CaseInsensitive, QRegExp::Wildcard);
    }

    bool matches(const QString &name) const
    {
        const QRegExp &first = m_pieces.front();
        if (m_pieces.size() == 1)
            return first.exactMatch(name);
        if (first.indexIn(name) != 0)
            return false;
        int end = first.matchedLength();
        for (auto piece = m_pieces.begin() + 1; piece != m_pieces.end() - 1; ++piece) {
            const int found = piece->indexIn(name, end);
            if (found < 0)
                return false;
            end = found + piece->matchedLength();
        }
        const QRegExp &last = m_pieces.back();
        if (last.isEmpty())
            return true;
        const int found = last.lastIndexIn(name);
        return found >= end && found + last.matchedLength() == name.size();
    }

private:
    std::vector<QRegExp> m_pieces;
};

class NameFilter
{
public:
    explicit NameFilter(QStringList patterns)
    {
        // As handhelds take it; to a wildcard it would be a name with a dot in it.
        m_takesAll = patterns.contains(QLatin1String("*.*")) || patterns.contains(QLatin1String("*"));
        patterns.removeDuplicates();
        for (const QString &pattern : qAsConst(patterns)) {
            if (!m_takesAll && !pattern.isEmpty() && pattern.size() <= longestPattern)
                m_patterns.emplace_back(pattern);
        }
    }

    bool takes(const QString &name) const
    {
        return m_takesAll
            || std::any_of(m_patterns.cbegin(), m_patterns.cend(),
                           [&name](const Wildcard &pattern) { return pattern.matches(name); });
    }

private:
    std::vector<Wildcard> m_patterns;
    bool m_takesAll = false;
};

void sortIgnoringCase(QStringList &names)
{
    std::vector<std::pair<QString, QString>> keyed;
    keyed.reserve(static_cast<std::size_t>(names.size()));
    for (const QString &name : qAsConst(names))
        keyed.emplace_back(name.toLower(), name);
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.cbegin(), keyed.cend(), names.begin(),
                   [](const std::pair<QString, QString> &name) { return name.second; });
}

} // namespace

FolderListing listFolder(const QString &directory, const QStringList &filters, HiddenFiles hiddenFiles)
{
    FolderListing listing;
    const NameFilter filter(filters);
    // QDir would read it twice, and hold up the dialog.
    platform::current().shell().listFolder(
        directory.toStdU16String(), [&](const platform::FolderEntry &entry) {
            const QString name =
                QStringView(entry.name.data(), static_cast<int>(entry.name.size())).toString();
            const bool mayBeListed =
                !entry.isHidden || (!entry.isFolder && hiddenFiles == HiddenFiles::Listed);
            if (mayBeListed && entry.isFolder)
                listing.folders.append(name);
            else if (mayBeListed && filter.takes(name))
                listing.files.append(name);
        });
    sortIgnoringCase(listing.folders);
    sortIgnoringCase(listing.files);
    return listing;
}
