#include "platform/connectionmanager.h"
#include "support/providertest.h"

namespace {

/// A connection manager that writes down what it is asked for, on the network thread, and answers as told.
class ScriptedConnections : public platform::ConnectionManager
{
public:
    std::optional<platform::NetworkId> networkFor(const std::u16string &url) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(QLatin1String("map ") + QString::fromStdU16String(url));
        return network;
    }

    std::unique_ptr<platform::DataConnection> connect(const platform::ConnectionRequest &request,
                                                      std::chrono::milliseconds timeout) override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(QStringLiteral("connect %1 %2 %3 %4%5 to %6 in %7")
                           .arg(request.parameters)
                           .arg(request.flags)
                           .arg(request.priority, 0, 16)
                           .arg(request.exclusive)
                           .arg(request.disabled)
                           .arg(request.destination.at(15))
                           .arg(timeout.count()));
        return canConnect ? std::make_unique<Connection>(*this) : nullptr;
    }

    void change(const std::function<void()> &change)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        change();
    }

    /// What was asked for since the last call.
    QStringList take()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::exchange(m_calls, {});
    }

    std::optional<platform::NetworkId> network;
    std::optional<std::uint32_t> status = platform::connectionConnected;
    bool canConnect = true;

private:
    class Connection : public platform::DataConnection
    {
    public:
        explicit Connection(ScriptedConnections &manager)
            : m_manager(manager)
        {
        }

        ~Connection() override
        {
            m_manager.change([this] { m_manager.m_calls.append(QStringLiteral("release")); });
        }

        std::optional<std::uint32_t> status() override
        {
            const std::lock_guard<std::mutex> lock(m_manager.m_mutex);
            m_manager.m_calls.append(QStringLiteral("status"));
            return m_manager.status;
        }

    private:
        ScriptedConnections &m_manager;
    };

    std::mutex m_mutex;
    QStringList m_calls;
};

const QString map = QStringLiteral("map http://127.0.0.1:1/feed?q=1");
const QString connectToNowhere = QStringLiteral("connect 1 1 8000 00 to 0 in 25000");

} // namespace

TEST_F(ProviderTest, DataConnectionIsOpenedOnceAndAgainWhenItIsLost)
{
    ScriptedConnections connections;
    m_platform->connectionsInForce = &connections;
    const QString start = QStringLiteral("getUrl('127.0.0.1:1/feed?q=1', this, cb)");
    const auto fetch = [&](const std::function<void()> &change) {
        connections.change(change);
        run(start);
        EXPECT_TRUE(waitForAnswers());
        return connections.take();
    };

    EXPECT_EQ(fetch([] {}), QStringList({map, connectToNowhere}));
    EXPECT_EQ(fetch([] {}), QStringList({QStringLiteral("status")}));

    connections.network = platform::NetworkId{};
    connections.network->back() = 7;
    const QStringList again{QStringLiteral("status"), QStringLiteral("release"), map,
                            QStringLiteral("connect 1 1 8000 00 to 7 in 25000")};
    EXPECT_EQ(fetch([&] { connections.status = 0x20; }), again);
    EXPECT_EQ(fetch([&] { connections.status.reset(); }), again);

    connections.change([&] { connections.canConnect = false; });
    run(start);
    EXPECT_TRUE(waitForAnswers());
    EXPECT_EQ(run(QStringLiteral("results.slice(8)")),
              QStringLiteral("[[true,\"Could not open data connection.\"]]"));
    EXPECT_EQ(connections.take(), again);

    // There is no connection to ask for its status now.
    EXPECT_EQ(fetch([&] { connections.canConnect = true; }), again.mid(2));

    m_provider.Unload();
    EXPECT_EQ(connections.take(), QStringList({QStringLiteral("release")}));
}
