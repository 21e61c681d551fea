#include "platform/soundsettings.h"
#include "support/providertest.h"

namespace {

class ScriptedSound : public platform::SoundSettings
{
public:
    std::int32_t get(std::uint32_t event, platform::SoundRecord &record) override
    {
        EXPECT_EQ(event, 0u);
        record.type = static_cast<platform::SoundType>(type);
        return status;
    }
    std::int32_t set(std::uint32_t event, const platform::SoundRecord &record, std::uint32_t flags) override
    {
        EXPECT_EQ(event, 0u);
        EXPECT_EQ(flags, 1u);
        EXPECT_EQ(record.pathName.at(0), u'\0');
        type = static_cast<int>(record.type);
        return -1;
    }

    int type = 0;
    std::int32_t status = 0;
};

} // namespace

TEST_F(ProviderTest, SoundProfiles)
{
    ScriptedSound sound;
    m_platform->soundInForce = &sound;
    // A native object, which the first argument has to be.
    m_application.engine().globalObject().setProperty(QStringLiteral("native"),
                                                      m_application.engine().newQObject(&m_store));
    const auto read = [this] {
        return run(QStringLiteral("results = []; getSoundProfile(native, cb); results"));
    };

    const QStringList byType{QStringLiteral("on"), QStringLiteral("on"), QStringLiteral("vibrate"),
                             QStringLiteral("off"), QStringLiteral("on")};
    for (sound.type = 0; sound.type < byType.size(); ++sound.type)
        EXPECT_EQ(read(), QStringLiteral("[[\"%1\"]]").arg(byType.at(sound.type)));
    sound.status = -1;
    EXPECT_EQ(read(), QStringLiteral("[]"));

    const QList<QPair<const char *, int>> byName = {{"vibrate", 2}, {"loud", 0}, {"off", 3},
                                                    {"Vibrate", 0}, {"off", 3},  {"", 0}};
    for (const auto &[name, type] : byName) {
        run(QStringLiteral("setSoundProfile('%1')").arg(QLatin1String(name)));
        EXPECT_EQ(sound.type, type) << name;
    }
    EXPECT_EQ(takeMessages(), QStringList());
}

TEST_F(ProviderTest, DeviceFunctionsReportBadArguments)
{
    m_application.engine().globalObject().setProperty(QStringLiteral("native"),
                                                      m_application.engine().newQObject(&m_store));
    for (const char *call :
         {"getSoundProfile({}, cb)", "getSoundProfile(native, {})", "getSoundProfile(native, cb, 1)",
          "setSoundProfile()", "setSoundProfile(2)", "setSoundProfile('off', 1)",
          "getRadioStatus(1, this, cb)", "getRadioStatus('wifi', 5, cb)", "getRadioStatus('wifi', this)",
          "setRadioStatus('phone', 'yes')", "setRadioStatus('phone', true, 1)", "s2pCommand()",
          "s2pCommand(5)", "s2pCommand('play', 1)", "s2pStatus(this)", "s2pStatus(5, cb)",
          "s2pStatus(this, {})", "s2pStatus(this, cb, 1)"}) {
        EXPECT_EQ(run(QLatin1String(call) + QLatin1String("; results")), QStringLiteral("[]"));
        EXPECT_EQ(takeMessages(),
                  QStringList(QStringLiteral("[Error] %1: Invalid function arguments.")
                                  .arg(QString::fromLatin1(call).section(QLatin1Char('('), 0, 0))));
    }
}
