#pragma once

#include "platform/desktop/outlook/itemfilter.h"

namespace platform {

/// An item of @p folder as it is handed out. It keeps what it needs of the entry.
std::unique_ptr<IPOutlookItem> makeItem(OutlookFolder folder, const ItemEntry &entry);

} // namespace platform
