#include "platform/desktop/desktopclock.h"

#include <QtCore/QLocale>
#include <gmock/gmock.h>

// What is alike in every back end is in tests/contracts/clock_contract.cpp.

namespace {

using platform::SystemTime;

constexpr SystemTime saturday{2009, 11, 0, 7, 15, 4, 5, 0};
constexpr SystemTime monday{2010, 3, 0, 1, 0, 0, 0, 0};

struct Case
{
    const char *locale;
    SystemTime time;
    std::u16string picture;
    std::u16string text;
};

const Case cases[] = {
    {"de_DE", monday, u"dddd, d. MMMM yyyy", u"Montag, 1. März 2010"},
    {"fr_FR", saturday, u"dddd d MMMM", u"samedi 7 novembre"},
    {"ru_RU", saturday, u"d MMMM", u"7 ноября"},
    {"ru_RU", saturday, u"MMMM yyyy", u"ноябрь 2009"},
    {"pl_PL", saturday, u"MMMM 'x' yy dd", u"listopada x 09 07"},
    {"pl_PL", saturday, u"d dddd MMMM", u"7 sobota listopad"},
    {"pl_PL", saturday, u"ddd MMMM 'd'", u"sob. listopad d"},
    // There are no eras.
    {"en_US", saturday, u"y yggyy", u"09 0909"},
    {"en_US", saturday, std::u16string(1000000, u'g') + u"d", u"7"},
};

} // namespace

TEST(DesktopClock, MakesDatesInTheLanguageOfTheLocale)
{
    const QLocale locale;
    for (const Case &each : cases) {
        QLocale::setDefault(QLocale(QLatin1String(each.locale)));
        const auto text = platform::DesktopClock().dateText(each.time, each.picture, 100);
        EXPECT_EQ(text, each.text) << each.locale << ' '
                                   << QString::fromStdU16String(each.picture).left(100).toStdString();
    }
    QLocale::setDefault(locale);
}
