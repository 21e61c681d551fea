#include "platform/windows/windowsregistry.h"

#include "platform/windows/handles.h"
#include "platform/windows/registrydata.h"
#include "platform/windows/registrywatchthread.h"
#include "platform/windows/seams/registryseam.h"
#include "platform/windows/shellnotifications.h"
#include "platform/windows/widetext.h"

#include <algorithm>

namespace platform {

namespace {

HKEY rootKey(RegistryRoot root)
{
    // The numbers of roots are negative, on 64 bits, too.
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<std::int32_t>(root)));
}

class WindowsKey : public RegistryKey
{
public:
    explicit WindowsKey(HKEY key)
        : m_key(key)
    {
    }

    std::optional<RegistryValueInfo> info(const std::u16string &name) override
    {
        DWORD type = 0;
        DWORD size = 0;
        if (RegQueryValueExW(m_key.get(), wide(name), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            return std::nullopt;
        return RegistryValueInfo{type, size};
    }

    std::optional<RegistryBytes> read(const std::u16string &name, std::uint32_t size) override
    {
        RegistryBytes bytes(std::min(size, largestValue));
        auto count = static_cast<DWORD>(bytes.size());
        const LONG status = RegQueryValueExW(m_key.get(), wide(name), nullptr, nullptr, bytes.data(), &count);
        // Without a buffer, the size of a value of any size is told.
        if (status != ERROR_SUCCESS || count > bytes.size())
            return std::nullopt;
        bytes.resize(count);
        return bytes;
    }

    bool write(const std::u16string &name, std::uint32_t type, const RegistryBytes &buffer,
               std::uint32_t size) override
    {
        if (size > largestValue)
            return false;
        // Looking for a text's null, the system reads behind the counted bytes, and before the first if there
        // is only one.
        constexpr std::size_t room = 2 * sizeof(char16_t);
        RegistryBytes bytes(room + size + room);
        std::copy_n(buffer.begin(), std::min(buffer.size(), size + room), bytes.begin() + room);
        return RegSetValueExW(m_key.get(), wide(name), 0, type, bytes.data() + room, size) == ERROR_SUCCESS;
    }

private:
    const UniqueKey m_key;
};

} // namespace

WindowsRegistry::WindowsRegistry()
    : m_shell(std::make_unique<ShellNotifications>())
{
}

WindowsRegistry::~WindowsRegistry() = default;

RegistryOpening WindowsRegistry::open(RegistryRoot root, const std::optional<std::u16string> &subkey)
{
    if (root == RegistryRoot::None)
        return {nullptr, ERROR_INVALID_HANDLE};
    HKEY key = nullptr;
    const LONG status = registryseam::openKey(rootKey(root), subkey ? wide(*subkey) : nullptr, &key);
    if (status != ERROR_SUCCESS)
        return {nullptr, status};
    return {std::make_unique<WindowsKey>(key), 0};
}

std::unique_ptr<RegistryNotification> WindowsRegistry::notify(RegistryRoot root, const std::u16string &subkey,
                                                              const std::u16string &name,
                                                              RegistryListener listener)
{
    if (root == RegistryRoot::None)
        return nullptr;
    if (m_shell->areThere())
        return m_shell->begin(rootKey(root), subkey, name, std::move(listener));
    auto watch = std::make_unique<RegistryWatchThread>(rootKey(root), subkey, name, std::move(listener));
    if (!watch->start())
        return nullptr;
    return watch;
}

} // namespace platform
