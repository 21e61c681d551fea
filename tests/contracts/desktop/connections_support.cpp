#include "contracts/connections.h"

#include "platform/registry.h"

#include <gmock/gmock.h>

void contracts::setOnline(platform::Platform &device, bool isOnline)
{
    const auto network = device.registry().open(platform::RegistryRoot::LocalMachine, u"System\\Network");
    ASSERT_TRUE(network.key);
    const std::uint8_t connected = isOnline ? 1 : 0;
    EXPECT_TRUE(network.key->write(u"Connected", platform::RegistryType::dword, {connected, 0, 0, 0}, 4));
}
