#pragma once

#include <memory>

namespace platform {

class Bluetooth;
class Clock;
class ConnectionManager;
class DevicePower;
class HiddenWindows;
class Icons;
class NativeMessageBox;
class PocketOutlook;
class Registry;
class Shell;
class SoundSettings;
class TopLevelWindows;
class Wireless;

/// The services of one operating system. Plain C++17; texts are UTF-16, failures are values.
///
/// A service that a system lacks is an object that says so in its answers, never a null pointer.
class Platform
{
public:
    virtual ~Platform() = default;

    virtual Shell &shell() = 0;
    virtual Registry &registry() = 0;
    virtual NativeMessageBox &messageBox() = 0;
    virtual TopLevelWindows &windows() = 0;
    virtual Icons &icons() = 0;
    virtual Wireless &wireless() = 0;
    virtual Bluetooth &bluetooth() = 0;
    virtual DevicePower &power() = 0;
    virtual SoundSettings &sound() = 0;
    virtual ConnectionManager &connections() = 0;
    virtual HiddenWindows &hiddenWindows() = 0;
    virtual PocketOutlook &pocketOutlook() = 0;
    virtual Clock &clock() = 0;
};

/// The platform in force: the one installed last, else the back end that this build is for, made on
/// first use. Called on the GUI thread, or after a first call there.
Platform &current();

/// Puts @p platform in force, or with null the build's own back end again. The one before is destroyed.
void install(std::unique_ptr<Platform> platform);

} // namespace platform
