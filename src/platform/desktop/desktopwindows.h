#pragma once

#include "platform/desktop/devicefolder.h"
#include "platform/desktop/x11windows.h"

#include <QtCore/QStringList>

namespace platform {

/// The top-level windows around the simulated device: those of the desktop it runs on, and its programs'
/// message windows. The latter can only be found and posted to; to the rest they are windows that have gone.
class DesktopWindows : public X11Windows
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
