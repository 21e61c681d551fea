#include "platform/wireless.h"
#include "support/providertest.h"

#include <vector>

namespace {

using platform::WirelessDevice;

/// Plays the wireless library, Bluetooth and the power manager, and writes down every call in order.
class ScriptedRadios : public platform::Wireless, public platform::Bluetooth, public platform::DevicePower
{
public:
    struct Radio
    {
        std::u16string name;
        std::uint32_t state;
        std::uint32_t type;
    };

    std::unique_ptr<platform::WirelessLibrary> load() override
    {
        return hasLibrary ? std::make_unique<Library>(*this) : nullptr;
    }
    std::int32_t setMode(platform::BluetoothMode mode) override
    {
        return record(QStringLiteral("mode %1").arg(static_cast<int>(mode)), -1);
    }
    std::int32_t notify(const std::u16string &device, platform::PowerState state,
                        std::uint32_t flags) override
    {
        const QString name = QString::fromStdU16String(device);
        return record(QStringLiteral("power %1 D%2 %3").arg(name).arg(static_cast<int>(state)).arg(flags),
                      -1);
    }

    std::int32_t record(const QString &call, std::int32_t answer)
    {
        calls.append(call);
        return answer;
    }
    QString takeCalls() { return std::exchange(calls, {}).join(QLatin1String(", ")); }

    QStringList calls;
    bool hasLibrary = true;
    int missingOrdinal = 0;
    std::int32_t listStatus = 0;
    std::int32_t changeStatus = 5;
    std::vector<Radio> radios{{u"WLAN", 1, 1}, {u"CELL", 0, 2}, {u"BTH", 2, 3}, {u"GPS", 1, 4}};

private:
    class Library : public platform::WirelessLibrary
    {
    public:
        explicit Library(ScriptedRadios &script)
            : m_script(script)
        {
        }
        ~Library() override { m_script.calls.append(QStringLiteral("unload")); }

        bool resolve(platform::WirelessFunction function) override
        {
            const int ordinal = static_cast<int>(function);
            return m_script.record(QString::number(ordinal), ordinal != m_script.missingOrdinal) != 0;
        }
        std::int32_t deviceList(WirelessDevice *&head, std::uint32_t flags) override
        {
            if (m_script.listStatus == 0) {
                m_listed = m_script.radios;
                m_entries.reserve(m_listed.size());
                for (auto radio = m_listed.crbegin(); radio != m_listed.crend(); ++radio) {
                    m_entries.push_back({radio->name.c_str(), nullptr, radio->state, 0, radio->type, head});
                    head = &m_entries.back();
                }
            }
            return m_script.record(QStringLiteral("list %1").arg(flags), m_script.listStatus);
        }
        std::int32_t changeState(WirelessDevice &device, std::uint32_t state, std::uint32_t save) override
        {
            const QString name = QString::fromUtf16(device.deviceName);
            return m_script.record(
                QStringLiteral("change %1 %2 %3 %4").arg(name).arg(device.type).arg(state).arg(save),
                m_script.changeStatus);
        }
        void releaseList(WirelessDevice *) override
        {
            m_script.calls.append(QStringLiteral("release"));
            std::vector<WirelessDevice>().swap(m_entries);
            std::vector<Radio>().swap(m_listed);
        }

    private:
        ScriptedRadios &m_script;
        std::vector<Radio> m_listed;
        std::vector<WirelessDevice> m_entries;
    };
};

class RadioTest : public ProviderTest
{
protected:
    RadioTest()
    {
        m_platform->wirelessInForce = &m_script;
        m_platform->bluetoothInForce = &m_script;
        m_platform->powerInForce = &m_script;
        restart();
    }
    ~RadioTest() override { m_provider.Unload(); }

    /// Returns the calls at the stop and those at the start.
    QString restart()
    {
        m_provider.Unload();
        m_script.calls.append(QStringLiteral("started"));
        m_provider.BeginInitialize();
        return m_script.takeCalls();
    }

    /// The results of a script, its message boxes, and the calls to the platform.
    QString outcome(const char *script)
    {
        const QString results = run(QStringLiteral("results = []; %1; results").arg(QLatin1String(script)));
        return QStringList{results, takeMessages().join(QLatin1Char(' ')), m_script.takeCalls()}.join(
            QLatin1String(" | "));
    }

    ScriptedRadios m_script;
};

} // namespace

TEST_F(RadioTest, LoadsInOrderAndGivesTheListBackBeforeTheLibrary)
{
    EXPECT_EQ(restart(), QStringLiteral("release, unload, started, 276, 273, 280, list 0"));
    const QList<QPair<int, const char *>> incomplete = {
        {276, "started, 276"}, {273, "started, 276, 273"}, {280, "started, 276, 273, 280"}, {0, "started"}};
    for (const auto &[ordinal, calls] : incomplete) {
        m_script.missingOrdinal = ordinal;
        m_script.hasLibrary = ordinal != 0;
        EXPECT_TRUE(restart().endsWith(QLatin1String(calls))) << calls;
        EXPECT_EQ(outcome("getRadioStatus('wifi', this, cb); setRadioStatus('wifi', true)"),
                  QStringLiteral("[[false]] | [Error] Device not detected [Error] null device | "));
    }
}

TEST_F(RadioTest, ReadsAndSwitches)
{
    const QList<QPair<const char *, const char *>> cases = {
        {"getRadioStatus('wifi', this, cb)", "[[true]] |  | release, list 0"},
        {"getRadioStatus('phone', this, cb)", "[[false]] |  | release, list 0"},
        {"getRadioStatus('bluetooth', this, cb)", "[[false]] |  | release, list 0"},
        {"getRadioStatus('WiFi', this, cb)", "[[false]] | [Error] Device not detected | release, list 0"},
        {"setRadioStatus('gps', true)", "[] | [Error] null device | release, list 0"},
        {"setRadioStatus('wifi', true)", "[] | [Error] already on | release, list 0"},
        {"setRadioStatus('wifi', false)", "[] |  | release, list 0, change WLAN 1 0 1, power WLAN D4 1"},
        {"setRadioStatus('phone', false)", "[] | [Error] already off | release, list 0"},
        {"setRadioStatus('phone', true)",
         "[] | [Error] Could not change state to on CELL | release, list 0, change CELL 2 1 1"},
        {"setRadioStatus('bluetooth', false)",
         "[] | [Error] Could not change state to off BTH | release, list 0, change BTH 3 0 1"},
        {"setBluetoothDiscoverable(1, 2, 3)", "[] |  | mode 2"},
    };
    for (const auto &[script, expected] : cases)
        EXPECT_EQ(outcome(script), QLatin1String(expected)) << script;

    m_script.changeStatus = 0;
    m_script.radios.at(0).state = 0;
    EXPECT_EQ(outcome("setRadioStatus('bluetooth', true); setRadioStatus('wifi', true)"),
              QStringLiteral("[] |  | release, list 0, change BTH 3 1 1, "
                             "release, list 0, power WLAN D0 1, change WLAN 1 1 1"));
}

TEST_F(RadioTest, KeepsWhatIsNoLongerListedUntilTheProviderStops)
{
    m_script.radios = {{u"FIRST", 1, 2}, {u"SECOND", 0, 2}, {u"THIRD", 1, 2}};
    EXPECT_EQ(outcome("getRadioStatus('phone', this, cb)"), QStringLiteral("[[true]] |  | release, list 0"));
    m_script.radios.clear();
    EXPECT_EQ(outcome("getRadioStatus('wifi', this, cb)"), QStringLiteral("[[true]] |  | release, list 0"));
    m_script.listStatus = 1;
    EXPECT_EQ(
        outcome("setRadioStatus('phone', false)"),
        QStringLiteral("[] | [Error] Could not change state to off THIRD | list 0, change THIRD 2 0 1"));
    restart();
    EXPECT_EQ(outcome("getRadioStatus('wifi', this, cb)"),
              QStringLiteral("[[false]] | [Error] Device not detected | list 0"));
}
