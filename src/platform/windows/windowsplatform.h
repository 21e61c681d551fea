#pragma once

#include "platform/platform.h"
#include "platform/windows/outlook/windowsoutlook.h"
#include "platform/windows/windowsclock.h"
#include "platform/windows/windowsconnections.h"
#include "platform/windows/windowshiddenwindows.h"
#include "platform/windows/windowsicons.h"
#include "platform/windows/windowsmessagebox.h"
#include "platform/windows/windowsregistry.h"
#include "platform/windows/windowsshell.h"
#include "platform/windows/windowssound.h"
#include "platform/windows/windowstoplevelwindows.h"
#include "platform/windows/windowswireless.h"

namespace platform {

/// The back end on the Windows API, that of Windows CE and of its desktop relative. What only some systems
/// have (the wireless library, the connection manager, Pocket Outlook, ...) is looked for when it is first
/// used.
class WindowsPlatform : public Platform
{
public:
    Shell &shell() override;
    Registry &registry() override;
    NativeMessageBox &messageBox() override;
    TopLevelWindows &windows() override;
    Icons &icons() override;
    Wireless &wireless() override;
    Bluetooth &bluetooth() override;
    DevicePower &power() override;
    SoundSettings &sound() override;
    ConnectionManager &connections() override;
    HiddenWindows &hiddenWindows() override;
    PocketOutlook &pocketOutlook() override;
    Clock &clock() override;

private:
    WindowsShell m_shell;
    WindowsRegistry m_registry;
    WindowsMessageBox m_messageBox;
    WindowsTopLevelWindows m_windows;
    WindowsIcons m_icons;
    WindowsWireless m_wireless;
    WindowsBluetooth m_bluetooth;
    WindowsPower m_power;
    WindowsSound m_sound;
    WindowsConnections m_connections;
    WindowsHiddenWindows m_hiddenWindows;
    WindowsOutlook m_pocketOutlook;
    WindowsClock m_clock;
};

} // namespace platform
