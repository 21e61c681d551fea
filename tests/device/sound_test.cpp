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
    const auto read = [this] {
        return run(QStringLiteral("results = []; getSoundProfile(widget, cb); results"));
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
