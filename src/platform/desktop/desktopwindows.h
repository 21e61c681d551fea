#pragma once

#include "platform/desktop/devicefolder.h"
#include "platform/toplevelwindows.h"

#include <QtCore/QStringList>

namespace platform {

/// The top-level windows that the simulated device's programs can be reached by: its message windows.
class DesktopWindows : public TopLevelWindows
{
public:
    explicit DesktopWindows(const DeviceFolder &device);

    std::optional<WindowHandle> find(const std::u16string &title) override;
    bool post(WindowHandle window, const WindowMessage &message) override;

private:
    const DeviceFolder m_device;
    QStringList m_found; ///< titles of the windows found so far; a handle tells the place in here
};

} // namespace platform
