#pragma once

#include "platform/desktop/outlook/outlookitem.h"
#include "platform/pocketoutlook.h"

namespace platform {

/// A task. Its dates have no time of day, and are noDate if they are not set.
class Task : public OutlookItem
{
public:
    using OutlookItem::OutlookItem;

    QString subject;
    VariantDate startDate = noDate;
    VariantDate dueDate = noDate;
    bool isComplete = false; ///< or cancelled
};

/// Reads the to-dos of an iCalendar file (RFC 5545); see ItemReader.
FileItems readTasks(const QByteArray &content);

} // namespace platform
