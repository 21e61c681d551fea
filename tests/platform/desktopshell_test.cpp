#include "platform/desktop/desktopshell.h"
#include "platform/desktop/shortcutfile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <unistd.h>

namespace {

/// Starts real programs that write down where and with what they were started.
class DesktopShellTest : public testing::Test
{
protected:
    DesktopShellTest()
        : m_shell(platform::DeviceFolder(m_device))
    {
        EXPECT_EQ(platform::DeviceFolder(m_device).create(), QString());
        makeProgram(QStringLiteral("Program Files/Tool/tool.exe"));
        makeProgram(QStringLiteral("Windows/bare.exe"));
        makeProgram(QStringLiteral("bin/xdg-open"));
        qputenv("PATH", QFile::encodeName(m_device + QLatin1String("/bin:")) + m_path);
    }
    ~DesktopShellTest() override { qputenv("PATH", m_path); }

    void makeFile(const QString &path, const QByteArray &content) const
    {
        const QString full = m_device + QLatin1Char('/') + path;
        QDir().mkpath(QFileInfo(full).path());
        QFile file(full);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    void makeProgram(const QString &path) const
    {
        makeFile(path,
                 "#!/bin/sh\n{ pwd; for a in \"$@\"; do echo \"<$a>\"; done; } > \"$0.part\"\n"
                 "mv \"$0.part\" \"$0.out\"\n");
        QFile::setPermissions(m_device + QLatin1Char('/') + path,
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// What the program wrote: its working directory relative to the device, then its arguments.
    QString startedWith(const QString &program) const
    {
        QFile output(m_device + QLatin1Char('/') + program + QLatin1String(".out"));
        EXPECT_TRUE(QTest::qWaitFor([&output] { return output.exists(); }));
        output.open(QIODevice::ReadOnly);
        QString text = QString::fromUtf8(output.readAll()).trimmed();
        output.remove();
        text.remove(QFileInfo(m_device).canonicalFilePath());
        return text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    }

    bool execute(const char16_t *file, std::optional<std::u16string> parameters = {},
                 std::optional<std::u16string> directory = {})
    {
        platform::ShellExecution execution;
        execution.file = file;
        execution.parameters = std::move(parameters);
        execution.directory = std::move(directory);
        return m_shell.execute(execution);
    }

    QTemporaryDir m_dir;
    const QString m_device = m_dir.filePath(QStringLiteral("device"));
    const QByteArray m_path = qgetenv("PATH");
    platform::DesktopShell m_shell;
};

} // namespace

TEST_F(DesktopShellTest, StartsProgramsAndShortcuts)
{
    const QString tool = QStringLiteral("Program Files/Tool/tool.exe");
    const QString opener = QStringLiteral("bin/xdg-open");

    EXPECT_TRUE(
        execute(u"\\program files\\TOOL\\tool.exe", u"a \"b c\" \"\"\"d e\"\"\"", u"\\Program Files\\Tool"));
    EXPECT_EQ(startedWith(tool), QStringLiteral("/Program Files/Tool <a> <b c> <\"d> <e\">"));

    EXPECT_TRUE(execute(u"bare.exe", u"x", u"\\Windows"));
    EXPECT_EQ(startedWith(QStringLiteral("Windows/bare.exe")), QStringLiteral("/Windows <x>"));

    makeFile(QStringLiteral("Programs/Tool.lnk"),
             "3#\"\\Program Files\\Tool\\tool.exe\" \"from a\" shortcut");
    makeFile(QStringLiteral("Programs/Again.lnk"), "3#\\Programs\\Tool.lnk");
    EXPECT_TRUE(execute(u"\\Programs\\Again.lnk", std::nullopt, u"\\Programs"));
    EXPECT_EQ(startedWith(tool), QStringLiteral("/Program Files/Tool <from a> <shortcut>"));

    EXPECT_TRUE(execute(u"\\My Documents\\Welcome.txt"));
    EXPECT_EQ(startedWith(opener).section(QLatin1Char('<'), 1), QStringLiteral("/My Documents/Welcome.txt>"));
    EXPECT_TRUE(execute(u"http:\\\\localhost\\page"));
    EXPECT_EQ(startedWith(opener).section(QLatin1Char('<'), 1), QStringLiteral("http://localhost/page>"));
}

TEST_F(DesktopShellTest, WhatCannotBeStartedIsAnAnswer)
{
    makeFile(QStringLiteral("Programs/Loop.lnk"), "3#\\Programs\\Loop.lnk");
    makeFile(QStringLiteral("Programs/Empty.lnk"), "");
    for (const char16_t *file : {u"\\Windows\\missing.exe", u"no-such-program.exe", u"",
                                 u"\\Programs\\Loop.lnk", u"\\Programs\\Empty.lnk", u"/no/such/document.txt"})
        EXPECT_FALSE(execute(file)) << QString::fromUtf16(file).toStdString();
}

TEST_F(DesktopShellTest, LeavesNoZombieBehind)
{
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(execute(u"\\Windows\\bare.exe", u"x"));
        startedWith(QStringLiteral("Windows/bare.exe"));
    }
    QFile children(QStringLiteral("/proc/self/task/%1/children").arg(getpid()));
    ASSERT_TRUE(children.open(QIODevice::ReadOnly));
    EXPECT_EQ(children.readAll(), QByteArray());
}

TEST_F(DesktopShellTest, FindsTheDevicesOwnFolders)
{
    using platform::SpecialFolder;
    const auto inDevice = [this](const char *path) {
        return QString(m_device + QLatin1String(path)).toStdU16String();
    };
    EXPECT_EQ(m_shell.specialFolder(SpecialFolder::Programs, false), u"/Programs");
    EXPECT_EQ(m_shell.specialFolder(SpecialFolder::ProgramFiles, false), u"/Program Files");
    EXPECT_TRUE(m_shell.exists(u"\\windows\\BARE.EXE"));
    EXPECT_FALSE(m_shell.exists(u"\\windows\\other.exe"));

    EXPECT_EQ(m_shell.localPath(u"\\My Documents\\"), inDevice("/My Documents/"));
    EXPECT_EQ(m_shell.localPath(u"/my documents/New.txt"), inDevice("/My Documents/New.txt"));
    EXPECT_EQ(m_shell.localPath(u"/usr/share"), u"/usr/share");
    EXPECT_EQ(m_shell.localPath(u"relative\\path"), u"relative/path");
}

TEST_F(DesktopShellTest, SampleDataIsOnlyForNewDevices)
{
    const QString sample = m_device + QLatin1String("/My Documents/Welcome.txt");
    ASSERT_TRUE(QFile::remove(sample));
    EXPECT_EQ(platform::DeviceFolder(m_device).create(), QString());
    EXPECT_FALSE(QFile::exists(sample));
    EXPECT_EQ(platform::DeviceFolder(QStringLiteral("/proc/none")).create(),
              QStringLiteral("/proc/none: the device folder cannot be made"));
}

TEST(Shortcut, GivesTargetAndParameters)
{
    struct Case
    {
        QByteArray content;
        const char *file;
        const char *parameters;
    };
    const Case cases[] = {
        {"17#\\Windows\\calc.exe", "\\Windows\\calc.exe", ""},
        {"; comment\r\n;#\r\n9#\"\\Program Files\\a.exe\" -x \"y z\"\r\n1#other", "\\Program Files\\a.exe",
         "-x \"y z\""},
        {"9#\\a.exe -x?\\Windows\\icons.dll,-101", "\\a.exe", "-x"},
        {"9#\"\\a b.exe\"?:doctype", "\\a b.exe", ""},
        {"5#\"\\open end", "\\open end", ""},
        {"5#\xC3\xA4.exe", "\xC3\xA4.exe", ""},
    };
    for (const Case &c : cases) {
        const auto target = platform::parseShortcut(c.content);
        ASSERT_TRUE(target) << c.content.constData();
        EXPECT_EQ(target->file, QString::fromUtf8(c.file)) << c.content.constData();
        EXPECT_EQ(target->parameters, QString::fromUtf8(c.parameters)) << c.content.constData();
    }
    for (const QByteArray &content :
         {QByteArray(), QByteArray("no mark"), QByteArray("3#"), QByteArray("3#\"\""), QByteArray("3#?icon"),
          QByteArray(";#x\n;"), QByteArray(100, '\0')})
        EXPECT_FALSE(platform::parseShortcut(content)) << content.constData();
}
