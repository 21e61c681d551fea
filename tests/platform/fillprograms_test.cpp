#include "platform/desktop/desktopplatform.h"

#include <QtCore/QDirIterator>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>

namespace {

/// An application, and the shortcut that it gives. "BIN" stands for a folder of programs.
struct Case
{
    const char *entry; ///< its file
    const char *content; ///< without the first two lines
    const char *shortcut; ///< in Programs; empty: there is none
    const char *command = "";
};

const Case cases[] = {
    {"b/tool",
     "Name=Tool\nName[de]=Werkzeug\nIcon=tool\nExec=tool --file=%% %U\nCategories=Qt;Game;Office;\n",
     "Games/Werkzeug.lnk", "BIN/tool --file=%?\\Windows\\fill-programs\\b-tool.ico,-1"},
    {"a", "Name=Same\nExec=\"BIN/tool\" \"a b\" \"\" %c\nTryExec=tool\n[Other]\nExec=no\n", "Other/Same.lnk",
     "BIN/tool \"a b\" \"\""},
    {"c", "Name=Same\r\nExec=tool\r\nNoDisplay=false\r\nIcon=/etc/passwd\n", "Other/Same (2).lnk",
     "BIN/tool"},
    {"terminal", "Name=Console\nExec=tool x\nTerminal=true\nCategories=Utility;\n", "Accessories/Console.lnk",
     "BIN/x-terminal-emulator -e BIN/tool x"},
    {"-$(odd)", "Name=../\\\\x\\n\nExec=tool\nOnlyShowIn=Some;\n", "Other/_.__x.lnk", "BIN/tool"},
    {"icon", "Name=Icon\nExec=tool\n", "Other/Icon_.lnk", "BIN/tool"},
    {"hard", "Name=Hard\nExec=tool \"a\\\\\"b'\" C:\\\\\\\\d #?\n", "Other/Hard.lnk",
     "\\Windows\\fill-programs\\hard.exe"},
    {"mine", "Name=Mine\nExec=tool\n", ""},
    {"masked", "Name=No\nExec=tool\nHidden=true\n", ""},
    {"missing", "Name=No\nExec=no-such-program\n", ""},
    {"untried", "Name=No\nExec=tool\nTryExec=no-such-program\n", ""},
    {"elsewhere", "Name=No\nExec=tool\nOnlyShowIn=Another;\n", ""},
    {"unended", "Name=No\nExec=tool \"x\n", ""},
    {"menuless", "Name=No\nExec=tool\nNoDisplay=true\n", ""},
};

class FillProgramsTest : public testing::Test
{
protected:
    FillProgramsTest()
    {
        for (const char *program : {"bin/tool", "bin/x-terminal-emulator"}) {
            write(QLatin1String(program), "#!/bin/sh\nprintf '<%s>' \"$@\"\n");
            QFile::setPermissions(path(program), QFile::ReadOwner | QFile::ExeOwner);
        }
    }

    QString path(const char *name) const { return m_dir.filePath(QLatin1String(name)); }

    void write(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(QFileInfo(m_dir.filePath(name)).path());
        QFile file(m_dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(content).replace("BIN", QFile::encodeName(path("bin"))));
    }

    void writeEntry(const char *folder, const char *entry, const char *content) const
    {
        write(QLatin1String(folder) + QLatin1String("/applications/") + QLatin1String(entry)
                  + QLatin1String(".desktop"),
              QByteArray("[Desktop Entry]\nType=Application\n") + content);
    }

    /// What the program puts out.
    QString run(const QString &program) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOLM_DEVICE"), path("device"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), path("home"));
        environment.insert(QStringLiteral("XDG_DATA_DIRS"), path("data"));
        environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("Some:Other"));
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
        environment.insert(QStringLiteral("PATH"), path("bin:") + QString::fromLocal8Bit(qgetenv("PATH")));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, QStringList());
        EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0);
        return QString::fromUtf8(process.readAll());
    }

    /// The shortcuts below Programs and what they hold.
    QMap<QString, QString> shortcuts() const
    {
        const QDir programs(path("device/Programs"));
        QMap<QString, QString> found;
        QDirIterator files(programs.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            found.insert(programs.relativeFilePath(file.fileName()),
                         QString::fromUtf8(file.readAll()).replace(path("bin"), QLatin1String("BIN")));
        }
        return found;
    }

    const QTemporaryDir m_dir;
};

} // namespace

TEST_F(FillProgramsTest, MakesShortcutsToTheApplicationsOfTheDesktop)
{
    QMap<QString, QString> expected{{QStringLiteral("Other/Mine.lnk"), QStringLiteral("9#mine")}};
    write(QStringLiteral("device/Programs/Other/Mine.lnk"), "9#mine");
    for (const Case &c : cases) {
        writeEntry("home", c.entry, c.content);
        writeEntry("data", c.entry, "Name=Masked\nExec=tool\n");
        if (*c.shortcut)
            expected.insert(QLatin1String(c.shortcut), QLatin1String(c.command));
    }
    ASSERT_TRUE(QDir().mkpath(path("data/icons/hicolor/32x32/apps")));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SOURCE_DIR "/share/holm/images/programs/program.png"),
                            path("data/icons/hicolor/32x32/apps/tool.png")));

    const QString fillPrograms = QStringLiteral(SOURCE_DIR "/tools/fill-programs");
    for (const char *const told :
         {"7 shortcuts made, 0 renewed, 0 removed, 1 left", "0 shortcuts made, 7 renewed"}) {
        EXPECT_THAT(run(fillPrograms).toStdString(), testing::HasSubstr(told));
        QMap<QString, QString> made = shortcuts();
        EXPECT_TRUE(made.take(QStringLiteral("Games/icon.lnk")).contains(QLatin1String(",-203")));
        made.remove(QStringLiteral("Accessories/icon.lnk"));
        for (QString &content : made)
            content =
                content.section(QLatin1Char('#'), content.startsWith(QLatin1Char(';')) ? 1 : 0).trimmed();
        EXPECT_EQ(made, expected);
        EXPECT_EQ(run(path("device/Windows/fill-programs/hard.exe")), QStringLiteral("<a\"b'><C:\\d><#?>"));
        platform::DesktopPlatform handheld{platform::DeviceFolder(path("device"))};
        const auto icon = handheld.icons().extract(u"\\Windows\\fill-programs\\b-tool.ico", -1);
        EXPECT_TRUE(icon.large && icon.large->picture().width == 32);
    }

    ASSERT_TRUE(QDir(path("home")).removeRecursively() && QDir(path("data")).removeRecursively());
    EXPECT_THAT(run(fillPrograms).toStdString(), testing::HasSubstr("0 renewed, 7 removed, 0 left"));
    EXPECT_EQ(shortcuts().keys(), QStringList(QStringLiteral("Other/Mine.lnk")));
    EXPECT_TRUE(QDir(path("device/Windows/fill-programs")).isEmpty());
    EXPECT_FALSE(QFile::exists(path("device/Programs/Games")));
}
