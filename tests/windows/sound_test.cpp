#include "contracts/backend.h"
#include "windows/calllog.h"
#include "windows/resources.h"

#include "platform/soundsettings.h"

#include <gmock/gmock.h>

using namespace platform;

TEST(SoundTest, PassesArgumentsOnAndFailuresBack)
{
    const auto device = contracts::makePlatform();
    SoundSettings &sound = device->sound();
    SoundRecord written;
    written.pathName.fill(u'x');
    written.type = SoundType::Vibrate;
    SoundRecord read;
    const auto succeed = [&] {
        return sound.set(allSounds, written, withoutUserInterface) >= 0 && sound.get(allSounds, read) >= 0;
    };
    {
        CallLog log;
        EXPECT_TRUE(succeed());
        EXPECT_THAT(log.take(), testing::ElementsAre("aygshell 389(0, 2, 1)", "aygshell 390(0)"));
    }
    EXPECT_EQ(read.pathName.front(), u'x');
    EXPECT_EQ(read.pathName.back(), u'\0');
    expectNoLeak(succeed);

    read.type = SoundType::File;
    for (const char *call : {"aygshell 389", "aygshell 390"}) {
        const FailingCalls failing({call});
        EXPECT_FALSE(succeed());
    }
    EXPECT_EQ(read.type, SoundType::File);
}

TEST(SoundTest, WhatIsMissingAnswersWithFailure)
{
    const auto device = contracts::makePlatform();
    SoundRecord record;
    record.type = SoundType::File;
    for (const bool isThere : {false, true}) {
        isThere ? libraries::useEmpty({L"AYGSHELL.dll"}) : libraries::useNone();
        EXPECT_LT(device->sound().get(allSounds, record), 0);
        EXPECT_LT(device->sound().set(allSounds, record, withoutUserInterface), 0);
        EXPECT_EQ(record.type, SoundType::File);
    }
}
