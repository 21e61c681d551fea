#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// The root keys, by their pseudo handles. None is a root that every operation refuses.
enum class RegistryRoot : std::uint32_t {
    None = 0,
    ClassesRoot = 0x80000000,
    CurrentUser = 0x80000001,
    LocalMachine = 0x80000002,
    Users = 0x80000003,
};

/// The types of registry values that are spoken of here by name; others pass through by their number.
namespace RegistryType {
constexpr std::uint32_t none = 0;
constexpr std::uint32_t string = 1; ///< REG_SZ: UTF-16, little-endian, with a terminating null
constexpr std::uint32_t expandString = 2;
constexpr std::uint32_t binary = 3;
constexpr std::uint32_t dword = 4; ///< REG_DWORD: 32 bits, little-endian
constexpr std::uint32_t multiString = 7;
constexpr std::uint32_t qword = 11;
} // namespace RegistryType

using RegistryBytes = std::vector<std::uint8_t>;

/// The type of a value and the size of its data in bytes.
struct RegistryValueInfo
{
    std::uint32_t type = RegistryType::none;
    std::uint32_t size = 0;
};

/// An open key, closed by its destructor (RegCloseKey). Value names compare without regard to letter case.
/// Any thread, one at a time.
class RegistryKey
{
public:
    virtual ~RegistryKey() = default;

    /// Type and size of a value (RegQueryValueExW without a buffer); nothing if there is no such value.
    virtual std::optional<RegistryValueInfo> info(const std::u16string &name) = 0;

    /// The data of a value, of any type (RegQueryValueExW with a buffer of @p size bytes); nothing if there
    /// is no such value or it is larger than @p size. A smaller one comes as it is.
    virtual std::optional<RegistryBytes> read(const std::u16string &name, std::uint32_t size) = 0;

    /// Writes a value, and makes it if it is missing (RegSetValueExW with the first @p size bytes of @p
    /// buffer, which may be longer). The stored spelling of the name stays.
    ///
    /// The system completes a text whose terminating null was not counted: for the text types, if the last
    /// whole 16-bit unit inside the counted bytes is not null and the unit right after it is, two more
    /// bytes are stored. It looks for them behind the counted bytes; what the buffer lacks counts as 0.
    /// False if nothing was written.
    virtual bool write(const std::u16string &name, std::uint32_t type, const RegistryBytes &buffer,
                       std::uint32_t size) = 0;
};

/// What opening a key gave: the key and status 0, or no key and the system's error code.
struct RegistryOpening
{
    std::unique_ptr<RegistryKey> key;
    std::int32_t status = 0;
};

/// Told the new data of a watched value; nothing stands for a value that was deleted.
using RegistryListener = std::function<void(const std::optional<RegistryBytes> &data)>;

/// A registration for changes, ended by its destructor (RegistryCloseNotification). Once that has returned,
/// the listener is not being called and will not be called any more. It must not be destroyed inside its own
/// listener.
class RegistryNotification
{
public:
    virtual ~RegistryNotification() = default;
};

/// The registry. Any thread. It has to outlive its notifications.
class Registry
{
public:
    virtual ~Registry() = default;

    /// Opens a key that exists (RegOpenKeyExW, options and access 0). Without @p subkey it is the root
    /// itself.
    virtual RegistryOpening open(RegistryRoot root, const std::optional<std::u16string> &subkey) = 0;

    /// Calls @p listener for every change of a value, by any process, from now on, in the order of the
    /// changes (RegistryNotifyCallback without a condition). Where a system only tells that something has
    /// changed, changes in quick succession may come as one, or as none if they undo each other; the last
    /// state is always told. The key has to exist; the value may be missing. Writing the type and data that
    /// are there already is no change. Deleting the key counts as deleting the value, and if both are made
    /// again that is told as well. The listener is called on a thread of the system's; it may read and write
    /// keys, but neither begin nor end notifications. Null if the registration fails.
    virtual std::unique_ptr<RegistryNotification> notify(RegistryRoot root, const std::u16string &subkey,
                                                         const std::u16string &name,
                                                         RegistryListener listener) = 0;
};

} // namespace platform
