#pragma once

#include "platform/connectionmanager.h"

namespace platform {

/// The connection manager of a device, loaded while one of its connections is held or being opened.
///
/// A system without one looks after its connections itself: there, connect() gives one that is always
/// connected, and no address has a network of its own.
class WindowsConnections : public ConnectionManager
{
public:
    std::optional<NetworkId> networkFor(const std::u16string &url) override;
    std::unique_ptr<DataConnection> connect(const ConnectionRequest &request,
                                            std::chrono::milliseconds timeout) override;
};

} // namespace platform
