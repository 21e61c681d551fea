#include "platform/desktop/desktopclock.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <gmock/gmock.h>

namespace {

using platform::SystemTime;

constexpr SystemTime saturday{2009, 11, 0, 7, 15, 4, 5, 0};
constexpr SystemTime midnight{2010, 3, 0, 1, 0, 0, 0, 0};

struct Case
{
    const char *locale;
    char function;
    SystemTime time;
    std::u16string picture;
    std::optional<std::u16string> text;
    int capacity = 100;
};

} // namespace

TEST(DesktopClock, MakesTextsOfPictures)
{
    const Case cases[] = {
        {"en_US", 'd', saturday, u"MM/dd/yyyy", u"11/07/2009"},
        {"en_US", 'd', saturday, u"d ddd dddd ddddd", u"7 Sat Saturday Saturday"},
        {"en_US", 'd', saturday, u"M MMM MMMM MMMMM", u"11 Nov November November"},
        {"en_US", 'd', midnight, u"d dd M MM y yy yyy yyyyy", u"1 01 3 03 10 10 2010 2010"},
        {"en_US", 'd', saturday, u"y yggyy", u"09 0909"},
        {"en_US", 'd', saturday, u"H:mm D Y \"d\\é d", u"H:mm D Y \"7\\é 7"},
        {"en_US", 'd', saturday, u"dMMyyyy", u"7112009"},
        {"en_US", 'd', saturday, u"'o''clock' d''d '''d'''", u"o'clock 77 'd'"},
        {"en_US", 'd', saturday, u"d 'abc d", u"7 abc d"},
        {"en_US", 'd', saturday, u"''' d", u"' d"},
        {"en_US", 'd', saturday, u"'a''", u"a'"},
        {"en_US", 'd', saturday, u"d '", u"7 "},
        {"en_US", 'd', saturday, u"", u""},
        {"en_US", 't', saturday, u"h hh hhh H HH HHH", u"3 03 03 15 15 15"},
        {"en_US", 't', saturday, u"m mm mmm s ss sss t tt ttt", u"4 04 04 5 05 05 P PM PM"},
        {"en_US", 't', midnight, u"h:mm tt H t", u"12:00 AM 0 A"},
        {"en_US", 't', saturday, u"d M y g T S.f'h'", u"d M y g T S.fh"},
        {"en_US", 't', SystemTime{2009, 2, 0, 31, 12, 0, 0, 0}, u"hhtt", u"12PM"},
        {"C", 'd', saturday, u"dddd d MMM MMMM", u"Saturday 7 Nov November"},
        {"C", 't', saturday, u"h t tt", u"3 P PM"},
        {"de_DE", 'd', midnight, u"dddd, d. MMMM yyyy", u"Montag, 1. März 2010"},
        {"fr_FR", 'd', saturday, u"dddd d MMMM", u"samedi 7 novembre"},
        {"ru_RU", 'd', saturday, u"d MMMM", u"7 ноября"},
        {"ru_RU", 'd', saturday, u"MMMM yyyy", u"ноябрь 2009"},
        {"pl_PL", 'd', saturday, u"MMMM 'x' yy dd", u"listopada x 09 07"},
        {"pl_PL", 'd', saturday, u"d dddd MMMM", u"7 sobota listopad"},
        {"pl_PL", 'd', saturday, u"ddd MMMM 'd'", u"sob. listopad d"},
        // what does not fit, with the null behind it
        {"en_US", 'd', saturday, u"MM/dd/yyyy", u"11/07/2009", 11},
        {"en_US", 'd', saturday, u"MM/dd/yyyy", std::nullopt, 10},
        {"en_US", 'd', saturday, u"", u"", 1},
        {"en_US", 't', saturday, u"", std::nullopt, 0},
        {"en_US", 't', saturday, u"'x'", std::nullopt, -1},
        {"en_US", 'd', saturday, std::u16string(1000000, u'g') + u"d", u"7"},
        // what there is not
        {"en_US", 'd', SystemTime{2009, 13, 0, 1, 0, 0, 0, 0}, u"d", std::nullopt},
        {"en_US", 'd', SystemTime{2009, 2, 0, 29, 0, 0, 0, 0}, u"d", std::nullopt},
        {"en_US", 'd', SystemTime{2008, 2, 0, 29, 24, 0, 0, 0}, u"d", u"29"},
        {"en_US", 'd', SystemTime{1600, 12, 0, 31, 0, 0, 0, 0}, u"d", std::nullopt},
        {"en_US", 'd', SystemTime{30827, 12, 0, 31, 0, 0, 0, 0}, u"dddd yy yyyy", u"Friday 27 30827"},
        {"en_US", 't', SystemTime{2009, 1, 0, 1, 24, 0, 0, 0}, u"h", std::nullopt},
        {"en_US", 't', SystemTime{2009, 1, 0, 1, 1, 60, 0, 0}, u"h", std::nullopt},
        {"en_US", 't', SystemTime{2009, 1, 0, 1, 1, 1, 1, 1000}, u"h", std::nullopt},
    };
    const QLocale locale;
    platform::DesktopClock clock;
    for (const Case &each : cases) {
        QLocale::setDefault(QLocale(QLatin1String(each.locale)));
        const auto text = each.function == 'd' ? clock.dateText(each.time, each.picture, each.capacity)
                                               : clock.timeText(each.time, each.picture, each.capacity);
        const auto shown = [](const std::optional<std::u16string> &what) {
            return what ? QString::fromStdU16String(*what).left(100).toStdString() : "nothing";
        };
        EXPECT_EQ(shown(text), shown(each.text))
            << each.locale << ' ' << shown(each.picture) << ' ' << each.capacity;
    }
    QLocale::setDefault(locale);
}

TEST(DesktopClock, TellsTheLocalTime)
{
    const SystemTime now = platform::DesktopClock().localTime();
    const QDateTime told(QDate(now.year, now.month, now.day),
                         QTime(now.hour, now.minute, now.second, now.milliseconds));
    EXPECT_LE(qAbs(told.msecsTo(QDateTime::currentDateTime())), 5000);
    EXPECT_EQ(now.dayOfWeek, told.date().dayOfWeek() % 7);
}
