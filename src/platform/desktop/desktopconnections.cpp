#include "platform/desktop/desktopconnections.h"

namespace platform {

namespace {

// The one network there is; the identifier says nothing but that it is not the null one.
constexpr NetworkId internet{1};

constexpr std::uint32_t connectionDisconnected = 0x20;

class DesktopConnection : public DataConnection
{
public:
    explicit DesktopConnection(HardwareState &hardware)
        : m_hardware(hardware)
    {
    }

    std::optional<std::uint32_t> status() override
    {
        return m_hardware.isConnected() ? connectionConnected : connectionDisconnected;
    }

private:
    HardwareState &m_hardware;
};

} // namespace

DesktopConnections::DesktopConnections(HardwareState &hardware)
    : m_hardware(hardware)
{
}

std::optional<NetworkId> DesktopConnections::networkFor(const std::u16string &)
{
    return internet;
}

std::unique_ptr<DataConnection> DesktopConnections::connect(const ConnectionRequest &,
                                                            std::chrono::milliseconds)
{
    if (!m_hardware.isConnected())
        return nullptr;
    return std::make_unique<DesktopConnection>(m_hardware);
}

} // namespace platform
