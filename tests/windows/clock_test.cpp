#include "platform/clock.h"

#include "contracts/backend.h"
#include "windows/resources.h"

#include <gmock/gmock.h>

TEST(ClockTest, KeepsNothing)
{
    const auto platform = contracts::makePlatform();
    expectNoLeak([&] {
        const platform::SystemTime now = platform->clock().localTime();
        platform->clock().dateText(now, u"dddd", 100);
        platform->clock().timeText(now, u"HH", 1);
    });
}

TEST(ClockTest, RefusesPicturesThatTheSystemCannotTake)
{
    const auto platform = contracts::makePlatform();
    const platform::SystemTime date{2009, 9, 0, 7, 0, 0, 0, 0};
    for (const std::size_t size : {101u, 300u, 1000000u}) {
        EXPECT_FALSE(platform->clock().dateText(date, std::u16string(size, u'x'), 2000000));
        EXPECT_FALSE(platform->clock().timeText(date, std::u16string(size, u'x'), 2000000));
    }
    std::u16string longest;
    while (longest.size() < 100)
        longest += u"MMMM,";
    EXPECT_EQ(platform->clock().dateText(date, longest, 201)->size(), 200u);
}
