#include "windows/standins/calllog.h"

#include <map>
#include <mutex>
#include <thread>

// The shell's notifications of changes in the registry. A test says what they tell, and when.

namespace {

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

extern "C" HRESULT WINAPI RegistryNotifyCallback(HKEY root, const wchar_t *subkey, const wchar_t *name,
                                                 Callback *callback, DWORD number, const void *condition,
                                                 HANDLE *registration)
{
    standins::logCall("RegistryNotifyCallback", static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(root)), subkey,
                      name, condition != nullptr);
    if (standins::isToFail(L"RegistryNotifyCallback"))
        return E_FAIL;
    const std::lock_guard<std::mutex> lock(mutex);
    registrations[++latest] = {callback, number};
    *registration = reinterpret_cast<HANDLE>(latest);
    return S_OK;
}

extern "C" HRESULT WINAPI RegistryCloseNotification(HANDLE registration)
{
    standins::logCall("RegistryCloseNotification", reinterpret_cast<ULONG_PTR>(registration));
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
