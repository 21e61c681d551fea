#include "windows/standins/calllog.h"

#include <array>
#include <iterator>

// The wireless library of a device that is new each time the library is loaded.

namespace {

using standins::isToFail;
using standins::logCall;

// As devices have it, and not as the code under test has it.
struct Radio
{
    const wchar_t *deviceName;
    const wchar_t *displayName;
    DWORD state;
    DWORD desiredState;
    DWORD type;
    Radio *next;
};
static_assert(sizeof(void *) != 4 || sizeof(Radio) == 24);

constexpr std::uint32_t bluetooth = 3;

std::array<Radio, 3> radios{{
    {L"WLAN1", L"Wi-Fi", 1, 7, 1, nullptr},
    {L"PHONE1", L"Phone", 1, 8, 2, nullptr},
    {L"BLUETOOTH1", L"Bluetooth", 0, 9, bluetooth, nullptr},
}};

} // namespace

extern "C" LONG WINAPI deviceList(Radio **head, DWORD flags)
{
    logCall("ossvcs 276", flags);
    if (isToFail(L"ossvcs 276"))
        return ERROR_GEN_FAILURE;
    auto *const list = new Radio[radios.size()];
    std::copy(radios.begin(), radios.end(), list);
    for (std::size_t i = 0; i + 1 < radios.size(); ++i)
        list[i].next = &list[i + 1];
    *head = list;
    return 0;
}

extern "C" LONG WINAPI changeState(Radio *device, DWORD state, DWORD save)
{
    logCall("ossvcs 273", device->deviceName, state, save);
    if (isToFail(L"ossvcs 273") || device->type < 1 || device->type > radios.size() || state > 1)
        return ERROR_GEN_FAILURE;
    radios[device->type - 1].state = state;
    return 0;
}

extern "C" void WINAPI releaseList(Radio *head)
{
    logCall("ossvcs 280", head->deviceName);
    delete[] head;
}

/// How the stand-in for BTHUTIL.dll reaches the same radio.
extern "C" void setBluetooth(DWORD mode)
{
    radios[bluetooth - 1].state = mode;
}
