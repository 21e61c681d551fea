#include "support/holmprocess.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <gmock/gmock.h>

// A library for screens with twice as many dots is there, but none for others.
TEST(IconRun, FollowsTheDensityOfTheScreen)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("p.lnk"), "9#\\a.exe?\\Windows\\pics.dll,-101");
    holm.write(QStringLiteral("w.js"),
               "extractIcon(this, print, args[0] + '/p.lnk', args[0] + '/p.png', false, true);");
    ASSERT_TRUE(QDir().mkpath(holm.path(QStringLiteral("device/Windows"))));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SOURCE_DIR "/src/platform/desktop/shellres.dll"),
                            holm.path(QStringLiteral("device/Windows/pics.192.dll"))));
    const QString folder = holm.path(QString());
    EXPECT_EQ(holm.run({QStringLiteral("--unattended"), QStringLiteral("w.js"), folder}).output,
              QStringLiteral("lnk\n"));
    EXPECT_EQ(
        holm.run({QStringLiteral("--unattended"), QStringLiteral("--vga"), QStringLiteral("w.js"), folder})
            .output,
        QStringLiteral("true\n"));
}
