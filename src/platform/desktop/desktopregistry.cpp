#include "platform/desktop/desktopregistry.h"

namespace platform {

namespace {

// The system's own codes, for those who read the number in a message.
constexpr std::int32_t fileNotFound = 2;
constexpr std::int32_t cannotOpen = 1011; // ERROR_CANTOPEN: the registry key could not be opened

// A name ends at its first null, as for every function of the system.
QString nameOf(const std::u16string &name)
{
    return QString::fromUtf16(name.c_str());
}

bool isText(std::uint32_t type)
{
    return type == RegistryType::string || type == RegistryType::expandString
        || type == RegistryType::multiString;
}

QByteArray storedBytes(std::uint32_t type, const RegistryBytes &buffer, std::uint32_t size)
{
    const auto byteAt = [&buffer](std::size_t index) { return index < buffer.size() ? buffer[index] : 0; };
    const auto isNull = [&byteAt](std::size_t unit) {
        return byteAt(2 * unit) == 0 && byteAt(2 * unit + 1) == 0;
    };
    std::size_t stored = size;
    const std::size_t wholeUnits = size / 2;
    if (isText(type) && wholeUnits > 0 && !isNull(wholeUnits - 1) && isNull(wholeUnits))
        stored += 2;
    QByteArray bytes(static_cast<int>(stored), Qt::Uninitialized);
    for (std::size_t i = 0; i < stored; ++i)
        bytes[static_cast<int>(i)] = static_cast<char>(byteAt(i));
    return bytes;
}

class DesktopKey : public RegistryKey
{
public:
    DesktopKey(RegistryStore &store, RegistryStore::Key key)
        : m_store(store)
        , m_key(key)
    {
    }

    std::optional<RegistryValueInfo> info(const std::u16string &name) override
    {
        return m_store.info(m_key, nameOf(name));
    }

    std::optional<RegistryBytes> read(const std::u16string &name, std::uint32_t size) override
    {
        const std::optional<RegistryValue> value = m_store.value(m_key, nameOf(name));
        if (!value || static_cast<std::uint32_t>(value->data.size()) > size)
            return std::nullopt;
        return RegistryBytes(value->data.cbegin(), value->data.cend());
    }

    bool write(const std::u16string &name, std::uint32_t type, const RegistryBytes &buffer,
               std::uint32_t size) override
    {
        if (size > RegistryStore::largestValue)
            return false;
        return m_store.setValue(m_key, {nameOf(name), type, storedBytes(type, buffer, size)});
    }

private:
    RegistryStore &m_store;
    const RegistryStore::Key m_key;
};

} // namespace

DesktopRegistry::DesktopRegistry(const DeviceFolder &device, RegistryStore &store)
    : m_store(store)
    , m_watch(device, store)
{
}

RegistryOpening DesktopRegistry::open(RegistryRoot root, const std::optional<std::u16string> &subkey)
{
    const std::optional<RegistryStore::Key> key = m_store.find(root, nameOf(subkey.value_or(u"")));
    if (!key) {
        const QString problem = m_store.problem();
        if (problem.isEmpty())
            return {nullptr, fileNotFound};
        std::call_once(m_warning, [&problem] { qWarning("%s", qUtf8Printable(problem)); });
        return {nullptr, cannotOpen};
    }
    return {std::make_unique<DesktopKey>(m_store, *key), 0};
}

std::unique_ptr<RegistryNotification> DesktopRegistry::notify(RegistryRoot root, const std::u16string &subkey,
                                                              const std::u16string &name,
                                                              RegistryListener listener)
{
    if (!m_store.find(root, nameOf(subkey)))
        return nullptr;
    return m_watch.add(RegistryStore::comparablePath(root, nameOf(subkey)),
                       RegistryStore::comparableName(nameOf(name)), std::move(listener));
}

} // namespace platform
