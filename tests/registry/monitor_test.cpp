#include "platform/desktop/registrydata.h"
#include "support/providertest.h"
#include "support/registryprocess.h"

#include <QtTest/QTest>
#include <thread>

using platform::RegistryRoot;
namespace RegistryType = platform::RegistryType;

namespace {

class MonitorTest : public ProviderTest
{
protected:
    MonitorTest()
    {
        run(QStringLiteral("function cb(path, before, now) {"
                           " results.push([path.replace(/.*\\\\/, ''), before, now].map(String)); }"
                           "widgets = 'HKCU\\\\Software\\\\Widgets\\\\';"
                           "function watch(name) { regEventSuscribe(widget, cb, widgets + name); }"
                           "function leave(name) { regEventUnSuscribe(widget, widgets + name); }"));
    }

    /// What arrives until so many changes have, and for a moment after that.
    QString await(int count)
    {
        constexpr int longest = 20000;
        constexpr int moment = 100;
        const auto isComplete = [&] { return run(QStringLiteral("results.length")).toInt() >= count; };
        EXPECT_TRUE(QTest::qWaitFor(isComplete, longest));
        QTest::qWait(moment);
        return run(QStringLiteral("JSON.stringify(results.splice(0))"))
            .replace(QLatin1String("\\\""), QLatin1String("'"));
    }

    void set(const char *name, quint32 type, const QByteArray &data)
    {
        ASSERT_TRUE(m_registry.setValue(m_key, {QString::fromLatin1(name), type, data}));
    }

    void setNumber(const char *name, qint32 number)
    {
        const auto value = platform::numberValue(QString::fromLatin1(name), static_cast<quint32>(number));
        ASSERT_TRUE(m_registry.setValue(m_key, value));
    }

    const platform::RegistryStore::Key m_key =
        *m_registry.findOrMake(RegistryRoot::CurrentUser, QStringLiteral("Software\\Widgets"));
};

} // namespace

TEST_F(MonitorTest, TellsTheFirstValueAsTheOldOneAlways)
{
    setNumber("n", 1);
    set("t", RegistryType::string, QByteArray("a\0b\0\0\0", 6));
    run(QStringLiteral("watch('n'); watch('t'); watch('none')"));
    setNumber("n", 2);
    setNumber("n", -3);
    set("t", RegistryType::string, QByteArray("c\0\0\0", 4));
    set("t", RegistryType::string, QByteArray(""));
    set("t", RegistryType::string, QByteArray("x"));
    setNumber("none", 4);
    EXPECT_EQ(await(6),
              QStringLiteral("\"[['n','1','2'],['n','1','-3'],['t','ab\\\\u0000','c'],"
                             "['t','ab\\\\u0000',''],['t','ab\\\\u0000',''],['none','undefined','4']]\""));
}

TEST_F(MonitorTest, GoesByTheFirstTypeWhenTheTypeChanges)
{
    setNumber("n", 1);
    set("b", RegistryType::binary, "1234");
    run(QStringLiteral("watch('n'); watch('b')"));
    m_registry.removeValue(m_key, QStringLiteral("n"));
    set("n", RegistryType::string, QByteArray("a\0b\0\0\0", 6));
    set("n", RegistryType::dword, QByteArray("\x01\x02", 2));
    setNumber("b", 5);
    EXPECT_EQ(await(4),
              QStringLiteral("\"[['n','1','undefined'],['n','1','6422625'],['n','1','513'],"
                             "['b','undefined','undefined']]\""));
}

TEST_F(MonitorTest, CountsSubscriptions)
{
    run(QStringLiteral("watch('n'); watch('n'); leave('none')"));
    EXPECT_EQ(m_provider.findChildren<QObject *>().size(), 1);
    run(QStringLiteral("leave('n')"));
    setNumber("n", 1);
    EXPECT_EQ(await(1), QStringLiteral("\"[['n','undefined','1']]\""));
    run(QStringLiteral("leave('n'); leave('n')"));
    setNumber("n", 2);
    EXPECT_EQ(await(0), QStringLiteral("\"[]\""));
    EXPECT_EQ(takeMessages(), QStringList());
}

TEST_F(MonitorTest, TellsNoSubscriberWhatWasBefore)
{
    constexpr int rounds = 30;
    run(QStringLiteral("watch('n')"));
    for (int i = 1; i <= rounds; ++i) {
        run(QStringLiteral("writeReg(widgets + 'n', %1)").arg(i));
        if (i == rounds)
            std::this_thread::sleep_for(std::chrono::milliseconds(100)); // the change is on its way
        run(QStringLiteral("leave('n'); watch('n')"));
        // As an event loop does at its end.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(await(0), QStringLiteral("\"[]\""));
}

TEST_F(MonitorTest, GoesWhileChangesArrive)
{
    constexpr int count = 500;
    run(QStringLiteral("watch('v0')"));
    RegistryProcess writer(m_dir.filePath(QStringLiteral("device")), count, 1);
    for (int i = 0; i < count / 5; ++i) {
        run(QStringLiteral("watch('n'); watch('V0'); leave('n'); leave('V0')"));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(writer.finish(), count);
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return run(QStringLiteral("results.filter(function(r) { return r[0] === 'v0'; })"
                                  ".every(function(r, i) { return Number(r[2]) === i + 1; })"
                                  "&& results.some(function(r) { return r[2] === '500'; })"))
            == QLatin1String("true");
    }));
}

TEST_F(MonitorTest, TellsOfFailuresInTheSystemsMessageBox)
{
    run(QStringLiteral("regEventSuscribe(widget, cb, 'HKU\\\\a\\\\b');"
                       "regEventSuscribe(widget, cb, 'HKCU\\\\n'); watch('n')"));
    m_registry.inTransaction([this] {
        setNumber("n", 1);
        return m_registry.removeValue(m_key, QStringLiteral("n"));
    });
    EXPECT_EQ(await(1), QStringLiteral("\"[['n','undefined','undefined']]\""));
    m_registry.inTransaction([this] {
        setNumber("n", 1);
        return m_registry.removeKey(m_key);
    });
    EXPECT_EQ(await(1), QStringLiteral("\"[['n','undefined','undefined']]\""));
    EXPECT_EQ(m_platform->fakeMessageBox.take(),
              QStringList({QStringLiteral("[Error] Could not register notification for:HKU\\a\\b"),
                           QStringLiteral("[Error] Could not register notification for:HKCU\\n"),
                           QStringLiteral("[Error] Could not get type for:HKCU\\Software\\Widgets\\n"),
                           QStringLiteral("[Error] Could not open registry: HKCU\\Software\\Widgets\\n 2")}));
}
