#pragma once

#include "platform/pocketoutlook.h"

#include <QtCore/QByteArray>
#include <QtCore/QSet>
#include <QtCore/QString>

#include <vector>

namespace platform {

/// An item of an iCalendar or vCard file, as a file of its own.
struct SplitItem
{
    OutlookFolder folder; ///< where items of its kind are kept
    QByteArray uid; ///< as it is written in the file, never empty
    QByteArray content;
    QSet<QByteArray> changes; ///< which occurrences of a series it changes
    bool hasSeries = true; ///< false if it is nothing but such changes
};

/// The items of a file, or what is wrong with it.
struct SplitFile
{
    std::vector<SplitItem> items; ///< in the file's order; empty if there is a problem
    int leftOut = 0; ///< how many there are of other kinds, such as journals
    QString problem; ///< in plain words
};

/// Takes an iCalendar (RFC 5545) or vCard (RFC 6350, and the versions before) file apart. All components of
/// one UID, a series and its changed occurrences, are one item; of several cards of one UID the last one
/// counts. Lines are copied as they are: an item's own, and with an event or a to-do, those of its calendar
/// and of the time zones that it names. Left away is only the METHOD of a calendar, which is of no meaning in
/// a store. An item without a UID gets one, always the same for the same content.
SplitFile splitItems(const QByteArray &content);

/// Puts an item together with changes to it, both of the same folder and UID, as splitItems() gave them.
/// Changes that the item has to the same occurrences go; all else stays, and of a time zone the item's own
/// definition.
SplitFile mergeChanges(const SplitItem &item, const SplitItem &changes);

} // namespace platform
