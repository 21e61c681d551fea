#include "platform/windows/windowsplatform.h"

namespace platform {

Shell &WindowsPlatform::shell()
{
    return m_shell;
}

Registry &WindowsPlatform::registry()
{
    return m_registry;
}

NativeMessageBox &WindowsPlatform::messageBox()
{
    return m_messageBox;
}

TopLevelWindows &WindowsPlatform::windows()
{
    return m_windows;
}

Icons &WindowsPlatform::icons()
{
    return m_icons;
}

Wireless &WindowsPlatform::wireless()
{
    return m_wireless;
}

Bluetooth &WindowsPlatform::bluetooth()
{
    return m_bluetooth;
}

DevicePower &WindowsPlatform::power()
{
    return m_power;
}

SoundSettings &WindowsPlatform::sound()
{
    return m_sound;
}

ConnectionManager &WindowsPlatform::connections()
{
    return m_connections;
}

HiddenWindows &WindowsPlatform::hiddenWindows()
{
    return m_hiddenWindows;
}

PocketOutlook &WindowsPlatform::pocketOutlook()
{
    return m_pocketOutlook;
}

Clock &WindowsPlatform::clock()
{
    return m_clock;
}

} // namespace platform
