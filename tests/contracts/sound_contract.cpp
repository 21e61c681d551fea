#include "contracts/backend.h"

#include "platform/soundsettings.h"

#include <gmock/gmock.h>

using namespace platform;

TEST(SoundContract, KeepsTheProfileAndLeavesTheRecordAloneOnFailure)
{
    const auto device = contracts::makePlatform();
    SoundSettings &sound = device->sound();
    SoundRecord record;
    record.type = SoundType::None;
    EXPECT_GE(sound.get(allSounds, record), 0);
    EXPECT_EQ(record.type, SoundType::On);

    const SoundType types[] = {SoundType::Vibrate, SoundType::None, SoundType::File, SoundType::On,
                               SoundType::Vibrate};
    for (const SoundType type : types) {
        SoundRecord written;
        written.type = type;
        EXPECT_GE(sound.set(allSounds, written, withoutUserInterface), 0);
        EXPECT_GE(sound.get(allSounds, record), 0);
        EXPECT_EQ(record.type, type);
    }

    constexpr std::uint32_t unknownEvent = 12345;
    SoundRecord untouched;
    untouched.pathName = {u"mine"};
    untouched.type = SoundType::File;
    EXPECT_LT(sound.get(unknownEvent, untouched), 0);
    EXPECT_EQ(untouched.pathName[0], u'm');
    EXPECT_EQ(untouched.type, SoundType::File);
    EXPECT_LT(sound.set(unknownEvent, untouched, withoutUserInterface), 0);
    EXPECT_GE(sound.get(allSounds, record), 0);
    EXPECT_EQ(record.type, SoundType::Vibrate);
}
