#pragma once

#include "platform/pocketoutlook.h"

namespace platform {

/// Pocket Outlook by its in-process COM server. The thread's COM is begun with the first connection, and
/// ended when the last object that came from it has gone.
class WindowsOutlook : public PocketOutlook
{
public:
    std::unique_ptr<IPOutlookApp> createApplication() override;
};

} // namespace platform
