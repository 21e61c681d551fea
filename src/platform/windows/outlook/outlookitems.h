#pragma once

#include "platform/pocketoutlook.h"
#include "platform/windows/outlook/outlooksession.h"

namespace platform {

/// An item of the store as what it is, an appointment, a task or a contact. Null if it is none of these, or
/// if there is none.
std::unique_ptr<IPOutlookItem> makeItem(const OutlookSessionPointer &session, ComPointer<IDispatch> item);

/// The bundle of properties of a folder or of an item. Null on failure.
std::unique_ptr<IItem> makeFolderBundle(const OutlookSessionPointer &session, IUnknown &folder);
std::unique_ptr<IItem> makeItemBundle(const OutlookSessionPointer &session, IUnknown &item);

} // namespace platform
