#include "holm/callqueue.h"
#include "network/fetchcallbacks.h"
#include "support/providertest.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>

#include <thread>

namespace {

/// Counts the turns that the event loop gets.
class TurnCounter
{
public:
    TurnCounter()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { ++turns; });
        m_timer.start(0);
    }

    int turns = 0;

private:
    QTimer m_timer;
};

void work()
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(200);
    while (std::chrono::steady_clock::now() < end) { }
}

QScriptValue callFunction(QScriptContext *, QScriptEngine *, void *function)
{
    (*static_cast<std::function<void()> *>(function))();
    return QScriptValue();
}

constexpr int count = 1000;
constexpr int fewestTurns = 10; // of some 40, as a share has 5 ms

} // namespace

TEST_F(ProviderTest, OutcomesComeInOrderAndInShares)
{
    QScriptEngine &engine = m_application.engine();
    FetchCallbacks callbacks(m_application);
    std::vector<FetchId> fetches;
    std::size_t posted = 0;
    const auto post = [&] {
        callbacks.post({fetches.at(posted), QString::number(posted)});
        ++posted;
    };
    std::function<void()> workAndPost = [&] {
        work();
        if (posted < fetches.size())
            post();
    };
    engine.globalObject().setProperty(QStringLiteral("work"), engine.newFunction(callFunction, &workAndPost));
    const QScriptValue callback = engine.evaluate(
        QStringLiteral("ids = []; (function(failed, text) { ids.push(Number(text)); work(); })"));
    for (int i = 0; i < count; ++i)
        fetches.push_back(callbacks.add(QScriptValue(), callback));

    // Some pile up; then one comes as soon as another is delivered.
    std::thread network([&] {
        while (posted < count / 2)
            post();
    });
    network.join();
    const TurnCounter counter;
    EXPECT_TRUE(QTest::qWaitFor([&] { return callbacks.isEmpty(); }, 60000));
    EXPECT_GE(counter.turns, fewestTurns);
    EXPECT_EQ(run(QStringLiteral("ids.length === %1 && ids.every(function(id, i) { return id === i; })")
                      .arg(count)),
              QStringLiteral("true"));
}

TEST(CallQueue, RunsWhatHasWaitedInShares)
{
    CallQueue queue;
    int done = 0;
    {
        const CallQueue::Scope call(queue);
        for (int i = 0; i < count; ++i) {
            queue.deliver([&done] {
                work();
                ++done;
            });
        }
        EXPECT_EQ(done, 0);
    }
    const TurnCounter counter;
    EXPECT_TRUE(QTest::qWaitFor([&] { return done == count; }, 60000));
    EXPECT_GE(counter.turns, fewestTurns);
}
