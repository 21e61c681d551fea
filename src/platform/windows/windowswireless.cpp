#include "platform/windows/windowswireless.h"

#include "platform/windows/library.h"

namespace platform {

static_assert(sizeof(void *) != 4 || sizeof(WirelessDevice) == 24, "devices know records of this size");

namespace {

using DeviceList = LONG WINAPI(WirelessDevice **head, DWORD flags);
using ChangeState = LONG WINAPI(WirelessDevice *device, DWORD state, DWORD save);
using ReleaseList = LONG WINAPI(WirelessDevice *head);
using SetBluetoothMode = LONG WINAPI(DWORD mode);
using DevicePowerNotify = DWORD WINAPI(void *device, std::int32_t state, DWORD flags);

constexpr WORD setBluetoothMode = 1;

/// What a call to a function comes to that the system lacks.
constexpr std::int32_t missing = ERROR_PROC_NOT_FOUND;

class WindowsWirelessLibrary : public WirelessLibrary
{
public:
    explicit WindowsWirelessLibrary(Library &&library)
        : m_library(std::move(library))
    {
    }

    bool resolve(WirelessFunction function) override
    {
        switch (function) {
        case WirelessFunction::ChangeState:
            return resolve(m_changeState, function);
        case WirelessFunction::DeviceList:
            return resolve(m_deviceList, function);
        case WirelessFunction::ReleaseList:
            return resolve(m_releaseList, function);
        }
        return false;
    }

    std::int32_t deviceList(WirelessDevice *&head, std::uint32_t flags) override
    {
        return m_deviceList ? m_deviceList(&head, flags) : missing;
    }

    std::int32_t changeState(WirelessDevice &device, std::uint32_t state, std::uint32_t save) override
    {
        return m_changeState ? m_changeState(&device, state, save) : missing;
    }

    void releaseList(WirelessDevice *head) override
    {
        if (m_releaseList && head)
            m_releaseList(head);
    }

private:
    template <typename Function>
    bool resolve(Function *&found, WirelessFunction ordinal)
    {
        found = m_library.find<Function>(static_cast<WORD>(ordinal));
        return found != nullptr;
    }

    Library m_library;
    DeviceList *m_deviceList = nullptr;
    ChangeState *m_changeState = nullptr;
    ReleaseList *m_releaseList = nullptr;
};

} // namespace

std::unique_ptr<WirelessLibrary> WindowsWireless::load()
{
    Library library(L"ossvcs.dll");
    return library.isLoaded() ? std::make_unique<WindowsWirelessLibrary>(std::move(library)) : nullptr;
}

std::int32_t WindowsBluetooth::setMode(BluetoothMode mode)
{
    const auto set = m_library.get().find<SetBluetoothMode>(setBluetoothMode);
    return set ? set(static_cast<DWORD>(mode)) : missing;
}

std::int32_t WindowsPower::notify(const std::u16string &device, PowerState state, std::uint32_t flags)
{
    const auto notify = m_library.get().find<DevicePowerNotify>(L"DevicePowerNotify");
    std::u16string name = device; // which the call takes as if it wrote to it
    return notify ? static_cast<std::int32_t>(notify(name.data(), static_cast<std::int32_t>(state), flags))
                  : missing;
}

} // namespace platform
