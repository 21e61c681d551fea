#include "itemdirectory.h"

#include <platform/desktop/outlook/itemfile.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>

#include <algorithm>
#include <vector>

namespace {

using platform::SplitFile;
using platform::SplitItem;

/// A file's name without its ending, the same for the same UID. Never one that commands take for an option.
QByteArray baseName(const QByteArray &uid)
{
    static const QRegularExpression safe(QStringLiteral("\\A[A-Za-z0-9_@+][A-Za-z0-9_@+.-]{0,99}\\z"));
    return safe.match(QString::fromLatin1(uid)).hasMatch()
        ? uid
        : QCryptographicHash::hash(uid, QCryptographicHash::Sha1).toHex();
}

} // namespace

ItemDirectory::ItemDirectory(const QString &path, platform::OutlookFolder kind, const QByteArray &ending)
    : m_path(QFile::encodeName(path))
    , m_kind(kind)
    , m_ending(ending)
{
    QDir().mkpath(path);
}

QString ItemDirectory::prepare(SplitItem &item)
{
    readPlaces();
    const auto place = m_places.constFind(item.uid);
    if (place == m_places.constEnd())
        return QString();
    const QByteArray path = pathOf(place->fileName);
    const QString shownPath = QFile::decodeName(path);
    if (place->isShared)
        return shownPath + QLatin1String(" holds this item and others, too");
    if (QFile::encodeName(shownPath) != path)
        return shownPath + QLatin1String(" holds this item, and has a name that cannot be written");
    if (item.hasSeries)
        return QString();
    const SplitFile stored = read(place->fileName);
    if (stored.items.size() != 1 || stored.leftOut > 0 || stored.items.front().uid != item.uid)
        return shownPath + QLatin1String(" holds the series of this item, and has just changed");
    SplitFile merged = platform::mergeChanges(stored.items.front(), item);
    if (merged.problem.isEmpty())
        item = std::move(merged.items.front());
    return merged.problem;
}

QString ItemDirectory::write(const SplitItem &item)
{
    readPlaces();
    const auto place = m_places.constFind(item.uid);
    const QByteArray name = place != m_places.constEnd() ? place->fileName : newFileName(item.uid);
    QSaveFile file(QFile::decodeName(pathOf(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(item.content) != item.content.size() || !file.commit())
        return file.fileName() + QLatin1String(" cannot be written: ") + file.errorString();
    m_places.insert(item.uid, {name, false});
    return QString();
}

void ItemDirectory::readPlaces()
{
    if (m_isRead)
        return;
    m_isRead = true;
    const auto names = platform::itemFileNames(m_path, m_ending);
    for (const QByteArray &name : names.value_or(std::vector<QByteArray>())) {
        const SplitFile content = read(name);
        const bool isShared = content.items.size() + static_cast<std::size_t>(content.leftOut) > 1;
        for (const SplitItem &item : content.items) {
            if (item.folder == m_kind && !m_places.contains(item.uid))
                m_places.insert(item.uid, {name, isShared});
        }
    }
}

/// Of a file that cannot be read, nothing.
SplitFile ItemDirectory::read(const QByteArray &fileName) const
{
    return platform::splitItems(platform::FileContent::read(pathOf(fileName)).bytes);
}

/// One under which nothing stands, readable or not.
QByteArray ItemDirectory::newFileName(const QByteArray &uid) const
{
    const QByteArray base = baseName(uid);
    QByteArray name = base + m_ending;
    for (int i = 2; platform::FileEntry::at(pathOf(name)).exists; ++i)
        name = base + '-' + QByteArray::number(i) + m_ending;
    return name;
}
