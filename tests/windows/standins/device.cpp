#include "windows/standins/calllog.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <mutex>
#include <string_view>
#include <thread>

#include <objbase.h>

// What a device's libraries do, each of which exports its part. Records are as devices have them, and not as
// the code under test has them.

using standins::noteCall;

// ossvcs, BTHUTIL and coredll: radios, which are new each time ossvcs is loaded.

namespace {

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

std::array<Radio, 3> radios{{
    {L"WLAN1", L"Wi-Fi", 1, 7, 1, nullptr},
    {L"PHONE1", L"Phone", 1, 8, 2, nullptr},
    {L"BLUETOOTH1", L"Bluetooth", 0, 9, 3, nullptr},
}};

} // namespace

extern "C" LONG WINAPI deviceList(Radio **head, DWORD flags)
{
    if (noteCall("ossvcs 276", flags))
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
    if (noteCall("ossvcs 273", device->deviceName, state, save) || device->type < 1
        || device->type > radios.size() || state > 1)
        return ERROR_GEN_FAILURE;
    radios[device->type - 1].state = state;
    return 0;
}

extern "C" void WINAPI releaseList(Radio *head)
{
    noteCall("ossvcs 280", head->deviceName);
    delete[] head;
}

/// How BTHUTIL reaches the same radio.
extern "C" void setBluetooth(DWORD mode)
{
    radios.back().state = mode;
}

extern "C" int WINAPI setMode(DWORD mode)
{
    if (noteCall("BTHUTIL 1", mode))
        return ERROR_GEN_FAILURE;
    if (const HMODULE wireless = GetModuleHandleW(L"ossvcs.dll")) {
        void *const set = reinterpret_cast<void *>(GetProcAddress(wireless, "setBluetooth"));
        reinterpret_cast<void (*)(DWORD)>(set)(mode);
    }
    return 0;
}

extern "C" DWORD WINAPI DevicePowerNotify(void *device, int state, DWORD flags)
{
    const std::wstring_view name = static_cast<const wchar_t *>(device);
    noteCall("coredll DevicePowerNotify", name.data(), state, flags);
    const bool isKnown = std::any_of(radios.begin(), radios.end(),
                                     [&](const Radio &radio) { return radio.deviceName == name; });
    return isKnown && flags == 1 ? 0 : ERROR_FILE_NOT_FOUND;
}

/// What a library exports that has nothing anybody asks for, but that number.
extern "C" int nothing()
{
    return -1;
}

// aygshell: the sound setting, which is new each time the library is loaded, and notifications of changes in
// the registry. A test says what they tell, and when.

namespace {

struct Sound
{
    wchar_t pathName[260];
    wchar_t displayName[260];
    LONG type;
};
static_assert(sizeof(Sound) == 1044);

constexpr DWORD allSounds = 0;
constexpr HRESULT unknownEvent = -1;
Sound record{};

using Callback = void(HANDLE registration, DWORD number, BYTE *data, UINT size);

struct Registration
{
    Callback *callback;
    DWORD number;
};

std::mutex mutex;
std::map<ULONG_PTR, Registration> registrations;
ULONG_PTR latest = 0;

} // namespace

extern "C" HRESULT WINAPI getSound(DWORD event, Sound *result)
{
    // One that fails may have written already.
    *result = record;
    return noteCall("aygshell 390", event) || event != allSounds ? unknownEvent : S_OK;
}

extern "C" HRESULT WINAPI setSound(DWORD event, const Sound *changed, DWORD flags)
{
    if (noteCall("aygshell 389", event, changed->type, flags) || event != allSounds)
        return unknownEvent;
    record = *changed;
    return S_OK;
}

extern "C" HRESULT WINAPI RegistryNotifyCallback(HKEY root, const wchar_t *subkey, const wchar_t *name,
                                                 Callback *callback, DWORD number, const void *condition,
                                                 HANDLE *registration)
{
    if (noteCall("RegistryNotifyCallback", static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(root)), subkey,
                 name, condition != nullptr))
        return E_FAIL;
    const std::lock_guard<std::mutex> lock(mutex);
    registrations[++latest] = {callback, number};
    *registration = reinterpret_cast<HANDLE>(latest);
    return S_OK;
}

extern "C" HRESULT WINAPI RegistryCloseNotification(HANDLE registration)
{
    noteCall("RegistryCloseNotification", reinterpret_cast<ULONG_PTR>(registration));
    const std::lock_guard<std::mutex> lock(mutex);
    return registrations.erase(reinterpret_cast<ULONG_PTR>(registration)) ? S_OK : E_INVALIDARG;
}

/// Tells every listener so many times, on a thread of its own. It may tell those, too, that end meanwhile.
extern "C" void tellListeners(BYTE *data, UINT size, int times)
{
    std::thread([=] {
        for (int i = 0; i < times; ++i) {
            std::unique_lock<std::mutex> lock(mutex);
            const auto all = registrations;
            lock.unlock();
            for (const auto &[handle, registration] : all)
                registration.callback(reinterpret_cast<HANDLE>(handle), registration.number, data, size);
        }
    }).join();
}

// cellcore: a connection manager that reaches everything by one network, unless the environment variable
// OFFLINE is set.

namespace {

struct ConnectionInfo
{
    DWORD cbSize;
    DWORD dwParams;
    DWORD dwFlags;
    DWORD dwPriority;
    BOOL bExclusive;
    BOOL bDisabled;
    GUID guidDestNet;
    HWND hWnd;
    UINT uMsg;
    LPARAM lParam;
    ULONG ulMaxCost;
    ULONG ulMinRcvBw;
    ULONG ulMaxConnLatency;
};
static_assert(sizeof(void *) != 4 || sizeof(ConnectionInfo) == 64);

constexpr GUID internet{1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
ULONG_PTR opened = 0;

bool isOffline()
{
    return GetEnvironmentVariableW(L"OFFLINE", nullptr, 0) > 0;
}

DWORD currentStatus()
{
    constexpr DWORD connected = 0x10;
    constexpr DWORD disconnected = 0x20;
    return isOffline() ? disconnected : connected;
}

} // namespace

extern "C" HRESULT WINAPI ConnMgrMapURL(wchar_t *url, GUID *network, DWORD *index)
{
    const bool fails = noteCall("cellcore MapURL", url);
    if (index)
        *index = 0;
    if (fails)
        return E_FAIL;
    *network = internet;
    // It may use the text as it likes.
    *url = L'\0';
    return S_OK;
}

extern "C" HRESULT WINAPI ConnMgrEstablishConnectionSync(ConnectionInfo *info, HANDLE *connection,
                                                         DWORD timeout, DWORD *status)
{
    const bool restIsZero = !info->hWnd && !info->uMsg && !info->lParam && !info->ulMaxCost
        && !info->ulMinRcvBw && !info->ulMaxConnLatency;
    wchar_t network[40] = {};
    StringFromGUID2(info->guidDestNet, network, std::size(network));
    const bool fails =
        noteCall("cellcore EstablishConnectionSync", info->cbSize == sizeof(*info) ? L"sized" : L"missized",
                 info->dwParams, info->dwFlags, info->dwPriority, info->bExclusive, info->bDisabled, network,
                 restIsZero ? L"rest 0" : L"rest not 0", timeout);
    // Offline, it leaves a handle behind that has to be released.
    *connection = fails && !isOffline() ? nullptr : reinterpret_cast<HANDLE>(++opened);
    *status = currentStatus();
    return fails || isOffline() ? E_FAIL : S_FALSE; // which is a success
}

extern "C" HRESULT WINAPI ConnMgrConnectionStatus(HANDLE connection, DWORD *status)
{
    *status = currentStatus();
    return noteCall("cellcore ConnectionStatus", reinterpret_cast<ULONG_PTR>(connection)) ? E_FAIL : S_OK;
}

extern "C" HRESULT WINAPI ConnMgrReleaseConnection(HANDLE connection, LONG cache)
{
    noteCall("cellcore ReleaseConnection", reinterpret_cast<ULONG_PTR>(connection), cache);
    return S_OK;
}
