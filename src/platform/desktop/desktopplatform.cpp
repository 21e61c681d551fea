#include "platform/desktop/desktopplatform.h"

namespace platform {

DesktopPlatform::DesktopPlatform(const DeviceFolder &device)
    : m_shell(device)
    , m_store(device)
    , m_registry(device, m_store)
    , m_hardware(m_store)
    , m_windows(device)
    , m_icons(device)
    , m_wireless(m_hardware)
    , m_bluetooth(m_hardware)
    , m_power(m_hardware)
    , m_sound(m_hardware)
    , m_connections(m_hardware)
    , m_outlook(device, m_hiddenWindows)
{
}

Shell &DesktopPlatform::shell()
{
    return m_shell;
}

Registry &DesktopPlatform::registry()
{
    return m_registry;
}

NativeMessageBox &DesktopPlatform::messageBox()
{
    return m_messageBox;
}

TopLevelWindows &DesktopPlatform::windows()
{
    return m_windows;
}

Icons &DesktopPlatform::icons()
{
    return m_icons;
}

Wireless &DesktopPlatform::wireless()
{
    return m_wireless;
}

Bluetooth &DesktopPlatform::bluetooth()
{
    return m_bluetooth;
}

DevicePower &DesktopPlatform::power()
{
    return m_power;
}

SoundSettings &DesktopPlatform::sound()
{
    return m_sound;
}

ConnectionManager &DesktopPlatform::connections()
{
    return m_connections;
}

HiddenWindows &DesktopPlatform::hiddenWindows()
{
    return m_hiddenWindows;
}

PocketOutlook &DesktopPlatform::pocketOutlook()
{
    return m_outlook;
}

Clock &DesktopPlatform::clock()
{
    return m_clock;
}

} // namespace platform
