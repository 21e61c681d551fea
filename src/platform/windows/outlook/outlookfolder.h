#pragma once

#include "platform/pocketoutlook.h"
#include "platform/windows/outlook/outlooksession.h"

namespace platform {

/// A folder of the store.
class WindowsFolder : public IFolder
{
public:
    WindowsFolder(OutlookSessionPointer session, ComPointer<pimstore::IFolder> folder);

    std::unique_ptr<IPOutlookItemCollection> get_Items() override;
    std::unique_ptr<IItem> QueryItem() override;

private:
    const OutlookSessionPointer m_session; // first, so that it goes last
    const ComPointer<pimstore::IFolder> m_folder;
};

} // namespace platform
