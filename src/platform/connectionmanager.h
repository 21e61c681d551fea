#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace platform {

/// Identifies a destination network. All bytes 0 is the null identifier.
using NetworkId = std::array<std::uint8_t, 16>;

constexpr std::uint32_t connectionConnected = 0x10;
constexpr std::uint32_t connectionParameterDestination = 0x1;
constexpr std::uint32_t connectionFlagHttpProxy = 0x1;
constexpr std::uint32_t connectionPriorityUserInteractive = 0x8000;

/// The members of CONNMGR_CONNECTIONINFO that differ from zero.
struct ConnectionRequest
{
    std::uint32_t parameters = 0;
    std::uint32_t flags = 0;
    std::uint32_t priority = 0;
    bool exclusive = false;
    bool disabled = false;
    NetworkId destination{};
};

/// A data connection that is held, released by its destructor (ConnMgrReleaseConnection, cache value 0).
class DataConnection
{
public:
    virtual ~DataConnection() = default;

    /// The connection's status (ConnMgrConnectionStatus); nothing if it cannot be told.
    virtual std::optional<std::uint32_t> status() = 0;
};

/// The connection manager (cellcore). Any thread; connections belong to the thread that opened them.
class ConnectionManager
{
public:
    virtual ~ConnectionManager() = default;

    /// The network that an address is reached through (ConnMgrMapURL); nothing if none is known.
    virtual std::optional<NetworkId> networkFor(const std::u16string &url) = 0;

    /// Opens a connection and waits for it (ConnMgrEstablishConnectionSync). Null on failure or after @p
    /// timeout.
    virtual std::unique_ptr<DataConnection> connect(const ConnectionRequest &request,
                                                    std::chrono::milliseconds timeout) = 0;
};

} // namespace platform
