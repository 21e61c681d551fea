#include "contracts/connections.h"

#include "contracts/backend.h"
#include "windows/calllog.h"
#include "windows/resources.h"

#include "platform/connectionmanager.h"

#include <gmock/gmock.h>
#include <windows.h>

using namespace platform;
using testing::ElementsAre;

void contracts::setOnline(Platform &, bool isOnline)
{
    SetEnvironmentVariableW(L"OFFLINE", isOnline ? nullptr : L"yes");
}

namespace {

class ConnectionsTest : public testing::Test
{
protected:
    std::unique_ptr<DataConnection> connect(std::chrono::milliseconds timeout = std::chrono::seconds(25))
    {
        return m_manager.connect({1, 2, 0x8000, true, false, m_network}, timeout);
    }

    const std::u16string m_url = u"http://localhost/\u00fc";
    const NetworkId m_network{1, 0, 0, 0, 2, 0, 3, 0, 4, 5, 6, 7, 8, 9, 10, 11};
    const std::unique_ptr<Platform> m_platform = contracts::makePlatform();
    ConnectionManager &m_manager = m_platform->connections();
};

} // namespace

TEST_F(ConnectionsTest, PassesArgumentsOn)
{
    CallLog log;
    EXPECT_EQ(m_manager.networkFor(m_url), m_network);
    EXPECT_EQ(m_url.front(), u'h');
    EXPECT_EQ(connect()->status(), connectionConnected);
    EXPECT_THAT(log.take(),
                ElementsAre("cellcore MapURL(http://localhost/\u00fc)",
                            "cellcore EstablishConnectionSync(sized, 1, 2, 32768, 1, 0, "
                            "{00000001-0002-0003-0405-060708090A0B}, rest 0, 25000)",
                            "cellcore ConnectionStatus(1)", "cellcore ReleaseConnection(1, 0)"));
    EXPECT_FALSE(GetModuleHandleW(L"cellcore.dll"));

    const std::pair<std::chrono::milliseconds::rep, const char *> timeouts[] = {
        {-1, ", 0)"}, {5000000000, ", 4294967294)"}};
    for (const auto &[timeout, passed] : timeouts) {
        connect(std::chrono::milliseconds(timeout));
        EXPECT_THAT(log.take().front(), testing::EndsWith(passed));
    }
}

TEST_F(ConnectionsTest, KeepsNothing)
{
    const auto keepsTheLibrary = connect();
    expectNoLeak([this] {
        m_manager.networkFor(m_url);
        connect()->status();
        contracts::setOnline(*m_platform, false);
        EXPECT_FALSE(connect());
        contracts::setOnline(*m_platform, true);
    });
}

TEST_F(ConnectionsTest, FailuresAreAnswers)
{
    const auto held = connect();
    CallLog log;
    const FailingCalls failing(
        {"cellcore MapURL", "cellcore ConnectionStatus", "cellcore EstablishConnectionSync"});
    EXPECT_FALSE(m_manager.networkFor(m_url));
    EXPECT_FALSE(held->status());
    log.take();
    EXPECT_FALSE(connect());
    EXPECT_EQ(log.take().size(), 1U) << "there was nothing to release";
    contracts::setOnline(*m_platform, false);
    EXPECT_FALSE(connect());
    EXPECT_EQ(log.take().back(), "cellcore ReleaseConnection(2, 0)")
        << "the handle that came with the failure";
    contracts::setOnline(*m_platform, true);
}

TEST_F(ConnectionsTest, AConnectionOutlivesThePlatform)
{
    const auto connection = contracts::makePlatform()->connections().connect({}, std::chrono::seconds(25));
    libraries::useNone();
    EXPECT_EQ(connection->status(), connectionConnected);
}

TEST_F(ConnectionsTest, ASystemWithoutAManagerIsAlwaysConnected)
{
    libraries::useNone();
    EXPECT_FALSE(m_manager.networkFor(m_url));
    EXPECT_EQ(connect()->status(), connectionConnected);
    libraries::useEmpty({L"cellcore.dll"});
    EXPECT_FALSE(m_manager.networkFor(m_url));
    EXPECT_FALSE(connect());
}
