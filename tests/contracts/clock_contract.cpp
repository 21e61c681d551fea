#include "contracts/backend.h"
#include "contracts/texts.h"

#include "platform/clock.h"

#include <gmock/gmock.h>

#include <ctime>
#include <random>

namespace {

using platform::SystemTime;

constexpr SystemTime saturday{2009, 11, 6, 7, 15, 4, 5, 0};
constexpr SystemTime midnight{2010, 3, 1, 1, 0, 0, 0, 0};

struct Case
{
    char function;
    SystemTime time;
    std::u16string picture;
    std::optional<std::u16string> text;
    int capacity = 100;
};

const Case cases[] = {
    {'d', saturday, u"MM/dd/yyyy", u"11/07/2009"},
    {'d', saturday, u"d ddd dddd ddddd", u"7 Sat Saturday Saturday"},
    {'d', saturday, u"M MMM MMMM MMMMM", u"11 Nov November November"},
    {'d', midnight, u"d dd M MM y yy yyy yyyyy", u"1 01 3 03 10 10 2010 2010"},
    {'d', SystemTime{2009, 11, 99, 7, 0, 0, 0, 0}, u"dddd", u"Saturday"},
    {'d', saturday, u"yyMMMddddyyyyy", u"09NovSaturday2009"},
    {'d', saturday, u"H:mm D Y \"d\\é d", u"H:mm D Y \"7\\é 7"},
    {'d', saturday, u"h H m s t", u"h H m s t"},
    {'d', saturday, u"dMMyyyy", u"7112009"},
    {'d', saturday, u"'o''clock' d''d '''d'''", u"o'clock 77 'd'"},
    {'d', saturday, u"d 'abc d", u"7 abc d"},
    {'d', saturday, u"''' d", u"' d"},
    {'d', saturday, u"'a''", u"a'"},
    {'d', saturday, u"d'd'd'M'M", u"7d7M11"},
    {'d', saturday, u"d '", u"7 "},
    {'d', saturday, u"", u""},
    {'d', saturday, std::u16string(u"d\0d", 3), u"7"},
    {'t', saturday, u"h hh hhh H HH HHH", u"3 03 03 15 15 15"},
    {'t', saturday, u"m mm mmm s ss sss t tt ttt", u"4 04 04 5 05 05 P PM PM"},
    {'t', midnight, u"h:mm tt H t", u"12:00 AM 0 A"},
    {'t', saturday, u"d M y g T S.f'h'", u"d M y g T S.fh"},
    {'t', SystemTime{2009, 2, 0, 31, 12, 0, 0, 0}, u"hhtt", u"12PM"},
    // what does not fit, with the null behind it
    {'d', saturday, u"MM/dd/yyyy", u"11/07/2009", 11},
    {'d', saturday, u"MM/dd/yyyy", std::nullopt, 10},
    {'d', saturday, u"MM/dd/yyyy", std::nullopt, 1},
    {'d', saturday, u"", u"", 1},
    {'d', saturday, u"d", std::nullopt, 0},
    {'t', saturday, u"", std::nullopt, 0},
    {'t', saturday, u"'x'", std::nullopt, -1},
    {'t', saturday, u"'x'", u"x", 2},
    {'t', saturday, std::u16string(100, u'x'), std::nullopt, 100},
    // what there is not
    {'d', SystemTime{2009, 13, 0, 1, 0, 0, 0, 0}, u"d", std::nullopt},
    {'d', SystemTime{2009, 0, 0, 1, 0, 0, 0, 0}, u"d", std::nullopt},
    {'d', SystemTime{2009, 1, 0, 0, 0, 0, 0, 0}, u"d", std::nullopt},
    {'d', SystemTime{2009, 4, 0, 31, 0, 0, 0, 0}, u"d", std::nullopt},
    {'d', SystemTime{2009, 2, 0, 29, 0, 0, 0, 0}, u"d", std::nullopt},
    {'d', SystemTime{1900, 2, 0, 29, 0, 0, 0, 0}, u"d", std::nullopt},
    {'d', SystemTime{2000, 2, 0, 29, 0, 0, 0, 0}, u"d", u"29"},
    {'d', SystemTime{2008, 2, 0, 29, 24, 60, 60, 1000}, u"d", u"29"},
    {'d', SystemTime{1600, 12, 0, 31, 0, 0, 0, 0}, u"d", std::nullopt},
    {'d', SystemTime{1601, 1, 0, 1, 0, 0, 0, 0}, u"dddd y yyyy", u"Monday 01 1601"},
    {'d', SystemTime{30827, 12, 0, 31, 0, 0, 0, 0}, u"dddd yy yyyy", u"Friday 27 30827"},
    {'d', SystemTime{30828, 12, 0, 31, 0, 0, 0, 0}, u"d", std::nullopt},
    {'t', SystemTime{2009, 1, 0, 1, 24, 0, 0, 0}, u"h", std::nullopt},
    {'t', SystemTime{2009, 1, 0, 1, 1, 60, 0, 0}, u"h", std::nullopt},
    {'t', SystemTime{2009, 1, 0, 1, 1, 1, 60, 0}, u"h", std::nullopt},
    {'t', SystemTime{2009, 1, 0, 1, 1, 1, 1, 1000}, u"h", std::nullopt},
    {'t', SystemTime{2009, 1, 0, 1, 23, 59, 59, 999}, u"H:m:s", u"23:59:59"},
};

std::optional<std::u16string> textOf(platform::Clock &clock, const Case &each)
{
    return each.function == 'd' ? clock.dateText(each.time, each.picture, each.capacity)
                                : clock.timeText(each.time, each.picture, each.capacity);
}

/// Any case at all, some of which have no text.
class CaseGenerator
{
public:
    Case next()
    {
        const char function = below(2) == 0 ? 'd' : 't';
        const std::u16string letters = function == 'd' ? u"dMy" : u"hHmst";
        const std::u16string others = u" ,.:/-'xZ\u00e4";
        std::u16string picture;
        for (int i = below(12); i > 0; --i) {
            const bool isRun = below(3) > 0;
            const std::u16string &from = isRun ? letters : others;
            picture += std::u16string(isRun ? below(6) + 1 : 1, from[below(static_cast<int>(from.size()))]);
        }
        const SystemTime time{number(1590, 2100), number(1, 12), number(0, 6),  number(1, 31),
                              number(0, 24),      number(0, 60), number(0, 60), number(0, 999)};
        return {function, time, picture, std::nullopt, below(60)};
    }

private:
    // The library's own distributions are not the same everywhere.
    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    std::uint16_t number(int first, int last)
    {
        return static_cast<std::uint16_t>(first + below(last - first + 1));
    }

    std::mt19937 m_random;
};

/// Of the texts of any 500 cases each, as they were found to be the same on every system.
constexpr std::uint32_t digests[40] = {
    0x0e3714df, 0x419c5a86, 0x870790c6, 0xc16abe90, 0xc21e3a0b, 0xa5a642d0, 0x54067b66, 0x22d88b3e,
    0x0483ddf2, 0xba2ed7bb, 0xca9acb08, 0x5bd5d818, 0xddf39e7f, 0xc76ef1bb, 0x3e2d51a6, 0x2fa6883d,
    0xba06426a, 0x69a7db46, 0x766a8233, 0x8ced5755, 0xaa16b33c, 0x4efc5562, 0x505fb3b8, 0x9229e3e9,
    0x3d1b87ab, 0xb2778d67, 0x3725c4a8, 0x352c6723, 0xc5ef897f, 0x192180b2, 0xcaf817ef, 0xee9ed8e4,
    0x950cbd46, 0x68e6f052, 0xccf0e851, 0x046555ba, 0xc1174172, 0x28a1f345, 0xa32b06ac, 0xe9f30e18};

} // namespace

TEST(ClockContract, MakesTextsOfPictures)
{
    const auto platform = contracts::makePlatform();
    for (const Case &each : cases)
        EXPECT_EQ(contracts::shown(textOf(platform->clock(), each)), contracts::shown(each.text))
            << each.function << ' ' << contracts::shown(each.picture).substr(0, 100) << ' ' << each.capacity;
}

TEST(ClockContract, MakesTheSameTextsEverywhere)
{
    const auto platform = contracts::makePlatform();
    CaseGenerator generator;
    for (const std::uint32_t expected : digests) {
        std::uint32_t digest = 0x811c9dc5; // FNV-1a
        std::string all; // so that those of a system that fails can be compared with those of another
        for (int i = 0; i < 500; ++i) {
            const Case each = generator.next();
            const std::string text = contracts::shown(textOf(platform->clock(), each));
            for (const char letter : text + '\n')
                digest = (digest ^ static_cast<unsigned char>(letter)) * 0x01000193;
            all += each.function + (' ' + contracts::shown(each.picture)) + " -> " + text + '\n';
        }
        ASSERT_EQ(digest, expected) << all;
    }
}

TEST(ClockContract, TellsTheLocalTime)
{
    const auto platform = contracts::makePlatform();
    const std::time_t before = std::time(nullptr);
    const SystemTime now = platform->clock().localTime();
    std::tm fields{};
    fields.tm_year = now.year - 1900;
    fields.tm_mon = now.month - 1;
    fields.tm_mday = now.day;
    fields.tm_hour = now.hour;
    fields.tm_min = now.minute;
    fields.tm_sec = now.second;
    fields.tm_isdst = -1;
    const std::time_t told = std::mktime(&fields);
    EXPECT_LE(before, told);
    EXPECT_LE(told, std::time(nullptr));
    EXPECT_EQ(now.dayOfWeek, fields.tm_wday);
    EXPECT_LT(now.milliseconds, 1000);
}
