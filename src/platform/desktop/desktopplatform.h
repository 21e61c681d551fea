#pragma once

#include "platform/desktop/desktopclock.h"
#include "platform/desktop/desktopconnections.h"
#include "platform/desktop/desktophiddenwindows.h"
#include "platform/desktop/desktopmessagebox.h"
#include "platform/desktop/desktopregistry.h"
#include "platform/desktop/desktopshell.h"
#include "platform/desktop/desktopsound.h"
#include "platform/desktop/desktopwindows.h"
#include "platform/desktop/desktopwireless.h"
#include "platform/desktop/devicefolder.h"
#include "platform/desktop/hardwarestate.h"
#include "platform/desktop/icons/desktopicons.h"
#include "platform/desktop/outlook/desktopoutlook.h"
#include "platform/desktop/registrystore.h"
#include "platform/platform.h"

namespace platform {

/// The back end for a Linux desktop: a simulated handheld kept in one folder.
class DesktopPlatform : public Platform
{
public:
    explicit DesktopPlatform(const DeviceFolder &device = DeviceFolder::current());

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
    DesktopShell m_shell;
    RegistryStore m_store;
    DesktopRegistry m_registry;
    HardwareState m_hardware;
    DesktopMessageBox m_messageBox;
    DesktopWindows m_windows;
    DesktopIcons m_icons;
    DesktopWireless m_wireless;
    DesktopBluetooth m_bluetooth;
    DesktopPower m_power;
    DesktopSound m_sound;
    DesktopConnections m_connections;
    DesktopHiddenWindows m_hiddenWindows;
    DesktopOutlook m_outlook;
    DesktopClock m_clock;
};

} // namespace platform
