#include "contracts/connections.h"

#include "contracts/backend.h"

#include "platform/connectionmanager.h"

#include <gmock/gmock.h>

using namespace platform;

TEST(ConnectionsContract, ConnectsWhileThereIsANetwork)
{
    const auto device = contracts::makePlatform();
    ConnectionManager &manager = device->connections();
    ConnectionRequest request{connectionParameterDestination,
                              connectionFlagHttpProxy,
                              connectionPriorityUserInteractive,
                              false,
                              false,
                              {}};
    const auto network = manager.networkFor(u"http://localhost/");
    ASSERT_TRUE(network);
    EXPECT_NE(*network, NetworkId());
    request.destination = *network;
    const auto connect = [&] { return manager.connect(request, std::chrono::seconds(25)); };

    const auto held = connect();
    ASSERT_TRUE(held);
    EXPECT_EQ(held->status(), connectionConnected);

    contracts::setOnline(*device, false);
    EXPECT_FALSE(connect());
    EXPECT_NE(held->status(), connectionConnected);

    contracts::setOnline(*device, true);
    const auto second = connect();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->status(), connectionConnected);
}
