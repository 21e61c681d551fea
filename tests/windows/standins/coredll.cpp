#include "windows/standins/calllog.h"

#include <algorithm>
#include <array>
#include <string_view>

extern "C" DWORD WINAPI DevicePowerNotify(void *device, int state, DWORD flags)
{
    const std::array<std::wstring_view, 3> devices{L"WLAN1", L"PHONE1", L"BLUETOOTH1"};
    const auto *const name = static_cast<const wchar_t *>(device);
    standins::logCall("coredll DevicePowerNotify", name, state, flags);
    const bool isKnown = std::find(devices.begin(), devices.end(), name) != devices.end();
    return isKnown && flags == 1 ? 0 : ERROR_FILE_NOT_FOUND;
}
