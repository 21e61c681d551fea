#pragma once

#include "platform/connectionmanager.h"
#include "platform/desktop/hardwarestate.h"

namespace platform {

/// The data connection of the simulated device: there unless HardwareState says that it was switched off.
/// A connection that is held follows that state.
class DesktopConnections : public ConnectionManager
{
public:
    explicit DesktopConnections(HardwareState &hardware);

    std::optional<NetworkId> networkFor(const std::u16string &url) override;
    std::unique_ptr<DataConnection> connect(const ConnectionRequest &request,
                                            std::chrono::milliseconds timeout) override;

private:
    HardwareState &m_hardware;
};

} // namespace platform
