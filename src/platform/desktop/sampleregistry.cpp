#include "platform/desktop/sampleregistry.h"

namespace platform {

const char *sampleRegistry()
{
    return R"(Windows Registry Editor Version 5.00

[HKEY_CLASSES_ROOT]

[HKEY_CURRENT_USER\Software]

; Scripts can write values but make no keys: this one is there for them.
[HKEY_CURRENT_USER\Software\Widgets]
"Greeting"="Hello"
"Counter"=dword:00000000

[HKEY_CURRENT_USER\ControlPanel\Owner]
"Name"="Robin Fairweather"

[HKEY_CURRENT_USER\ControlPanel\Sound]
"Profile"=dword:00000000

[HKEY_LOCAL_MACHINE\Software]

[HKEY_LOCAL_MACHINE\System\Network]
"Connected"=dword:00000001

[HKEY_LOCAL_MACHINE\System\Radios\WiFi]
"DeviceName"="WLAN1"
"DisplayName"="Wi-Fi"
"State"=dword:00000001
"SavedState"=dword:00000001
"Power"=dword:00000000

[HKEY_LOCAL_MACHINE\System\Radios\Phone]
"DeviceName"="PHONE1"
"DisplayName"="Phone"
"State"=dword:00000001
"SavedState"=dword:00000001

[HKEY_LOCAL_MACHINE\System\Radios\Bluetooth]
"DeviceName"="BLUETOOTH1"
"DisplayName"="Bluetooth"
"State"=dword:00000000
"SavedState"=dword:00000000
)";
}

} // namespace platform
