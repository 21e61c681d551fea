#pragma once

#include <platform/desktop/outlook/itemsplitter.h>

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>

/// A folder of a device that holds items of one kind, one a file. New items get files named after their UIDs.
class ItemDirectory
{
public:
    /// Makes the folder if it is missing. @p ending is that of its files' names, with the point.
    ItemDirectory(const QString &path, platform::OutlookFolder kind, const QByteArray &ending);

    /// Makes an item that only changes a series that is there already the whole of it. Returns why the item
    /// cannot be written, in plain words, or an empty text.
    QString prepare(platform::SplitItem &item);

    /// Writes an item, in place of the one with its UID if there is one; in one go, so that nobody sees half
    /// of it. Returns what went wrong in plain words, or an empty text.
    QString write(const platform::SplitItem &item);

private:
    struct Place
    {
        QByteArray fileName;
        bool isShared = false; ///< with other items
    };

    void readPlaces();
    platform::SplitFile read(const QByteArray &fileName) const;
    QByteArray newFileName(const QByteArray &uid) const;
    QByteArray pathOf(const QByteArray &fileName) const { return m_path + '/' + fileName; }

    const QByteArray m_path;
    const platform::OutlookFolder m_kind;
    const QByteArray m_ending;
    bool m_isRead = false;
    QHash<QByteArray, Place> m_places; ///< by UID
};
