#include "programs/iconextraction.h"
#include "support/dialoganswer.h"
#include "support/fakeicons.h"
#include "support/pictures.h"
#include "support/providertest.h"

#include <QtCore/QBuffer>
#include <sys/stat.h>

namespace {

class IconTest : public ProviderTest
{
protected:
    IconTest()
    {
        m_platform->iconsInForce = &m_icons;
        setValue(platform::RegistryRoot::ClassesRoot, "song\\DefaultIcon", "", "player.dll,-5");
        setValue(platform::RegistryRoot::ClassesRoot, "film\\DefaultIcon", "", "\"\\A, b\\film.dll\", 3");
        setValue(platform::RegistryRoot::ClassesRoot, "text\\DefaultIcon", "", "\\Windows\\pad.dll");
        setValue(platform::RegistryRoot::LocalMachine, "Software\\Microsoft\\Shell\\Rai\\:CAL", "1",
                 "\"\\Windows\\my cal.exe\" /today");
        setValue(platform::RegistryRoot::LocalMachine, "Software\\Microsoft\\Shell\\Rai\\:CAL", "2", "x.exe");
    }
    ~IconTest() override { EXPECT_EQ(m_icons.handedOut, 0); }

    void setValue(platform::RegistryRoot root, const char *key, const char *name, const char *text)
    {
        const QString value = QString::fromLatin1(text) + QChar();
        const QByteArray data(reinterpret_cast<const char *>(value.utf16()), value.size() * 2);
        const auto made = m_registry.findOrMake(root, QString::fromLatin1(key));
        ASSERT_TRUE(made);
        ASSERT_TRUE(
            m_registry.setValue(*made, {QString::fromLatin1(name), platform::RegistryType::string, data}));
    }

    void writeFile(const QString &path, const QByteArray &content)
    {
        makeFile(path);
        QFile file(m_dir.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// Which icons were looked for.
    QString askedFor(const QString &path, ShortcutUse use = ShortcutUse::Program)
    {
        extractIconPixmap(path, true, 0, 0, use);
        return std::exchange(m_icons.asked, {}).join(QLatin1Char(' '));
    }

    FakeIcons m_icons;
};

} // namespace

TEST_F(IconTest, ShortcutsLeadToTheIcon)
{
    const QPair<const char *, const char *> shortcuts[] = {
        {"48#\"\\Program Files\\A b\\a.exe\" -x \"c d\"\r\n", "\\Program Files\\A b\\a.exe,0"},
        {"; a comment\n;another\n9#\\Windows\\calc.exe /x\n8#other.exe", "\\Windows\\calc.exe,0"},
        {"9#calc.exe", "\\Windows\\calc.exe,0"},
        {"9#/Windows/CALC.EXE", "/Windows/CALC.EXE,0"},
        {"9#\\a.exe#b.exe", "\\a.exe,0"},
        {"9#\\T\xc3\xb6ne.exe", "\\T\xc3\xb6ne.exe,0"},
        // A location of its own.
        {"9#\\a.exe -x?\\Windows\\pics.dll,-101", "\\Windows\\pics.dll,-101 \\Windows\\pics.192.dll,-101"},
        {"9#\\a.exe?b.exe, 7 x", "\\Windows\\b.exe,7"},
        {"9#\\a.exe?/x/ceshell.dll,-3", "/x/shellres.dll,-3"},
        {"9#\\a.exe?\"\\x, y\\b.ico\",2", "\\x, y\\b.ico,2"},
        {"9#\\a.exe?\\b.exe", "\\b.exe,0"},
        {"9#\\a.exe?\\x\\CEshell.dll,-3", "\\x\\shellres.dll,-3 \\x\\shellres.192.dll,-3"},
        {"9#\\a.exe?ceshell.dll,-3", "\\Windows\\shellres.dll,-3 \\Windows\\shellres.192.dll,-3"},
        {"9#\\a.exe?\\x\\notceshell.dll,-3", "\\x\\notceshell.dll,-3"},
        // Icons of types of documents, and of names that the shell has for programs.
        {"9#\\a.exe?:song", "\\Windows\\player.dll,-5"},
        {"9#\\a.exe?:film", "\\A, b\\film.dll,3"},
        {"9#:CAL", "\\Windows\\my cal.exe,0"},
        {"9#:CAL /x", "\\Windows\\my cal.exe,0"},
        // Only programs may be named without the number of an icon.
        {"9#\\a.txt", ""},
        {"9#\\a.exe?\\b.dll,0", ""},
        {"9#\\a.exe?\\b.dll,none", ""},
        {"9#\\a.exe?:text", ""},
        // Nothing is named.
        {"9#\\a.exe?:unknown", ""},
        {"9#:UNKNOWN", ""},
        {"\\a.exe", ""},
        {"\n9#\\a.exe", ""},
        {";9#\\a.exe", ""},
        {"9#\"", ""},
        {"9#\\a.exe?", ""},
        {"", ""},
    };
    m_shell->existing =
        QStringList({QStringLiteral("\\Windows\\pics.192.dll"), QStringLiteral("\\x\\shellres.192.dll"),
                     QStringLiteral("\\Windows\\shellres.192.dll")});
    for (const auto &[content, expected] : shortcuts) {
        writeFile(QStringLiteral("app/a.LNK"), content);
        EXPECT_EQ(askedFor(QStringLiteral("a.LNK")), QString::fromUtf8(expected)) << content;
        EXPECT_EQ(askedFor(m_dir.filePath(QStringLiteral("app/a.LNK"))), QString::fromUtf8(expected))
            << content;
    }
    // A folder's icon may be the first of a library.
    writeFile(QStringLiteral("app/a.LNK"), "9#\\a.exe?\\b.ico,0");
    EXPECT_EQ(askedFor(QStringLiteral("a.LNK"), ShortcutUse::FolderIcon), QStringLiteral("\\b.ico,0"));

    ASSERT_EQ(::mkfifo(QFile::encodeName(m_dir.filePath(QStringLiteral("app/pipe.lnk"))).constData(), 0600),
              0);
    EXPECT_EQ(askedFor(QStringLiteral("pipe.lnk")), QString());
    EXPECT_EQ(askedFor(QStringLiteral("missing.lnk")), QString());
    EXPECT_EQ(askedFor(QStringLiteral("a.exe")), QStringLiteral("\\Windows\\a.exe,0"));
    EXPECT_EQ(askedFor(QStringLiteral("/a.dll")), QStringLiteral("/a.dll,0"));
}

TEST_F(IconTest, TheWantedSizeIsChosenAndScaled)
{
    m_icons.icons = {{QStringLiteral("/both.exe,0"), {32, 16}},
                     {QStringLiteral("/large.exe,0"), {48, 0}},
                     {QStringLiteral("/small.exe,0"), {0, 24}},
                     {QStringLiteral("/empty.exe,0"), {0, 0}},
                     {QStringLiteral("/lib.192.dll,0"), {64, 0}}};
    m_shell->existing.append(QStringLiteral("/lib.192.dll"));
    struct Case
    {
        const char *file;
        bool large;
        int width;
        int height;
        const char *picture;
    };
    const Case cases[] = {
        {"/both.exe", true, 0, 0, "32x32 #80ff0000"},
        {"/both.exe", false, 0, 0, "16x16 #ff0000ff"},
        {"/both.exe", true, 32, 32, "32x32 #80ff0000"},
        {"/both.exe", true, 10, 0, "10x32 #80ff0000"},
        {"/both.exe", true, 0, 10, "32x10 #80ff0000"},
        {"/both.exe", false, 20, 40, "20x40 #ff0000ff"},
        {"/both.exe", true, -1, 10, ""},
        {"/both.exe", true, 1000000, 1000000, ""},
        {"/large.exe", true, 0, 0, "48x48 #80ff0000"},
        {"/large.exe", false, 0, 0, ""}, // the large one does not stand in for the small one
        {"/small.exe", true, 0, 0, "24x24 #ff0000ff"},
        {"/empty.exe", true, 0, 0, ""},
        {"/empty.exe", true, 5, 5, ""},
        {"/missing.exe", true, 0, 0, ""},
        {"/lib.dll", true, 0, 0, "64x64 #80ff0000"},
    };
    for (const Case &c : cases) {
        const QPixmap icon = extractIconPixmap(QLatin1String(c.file), c.large, c.width, c.height);
        EXPECT_EQ(description(icon.toImage()), QLatin1String(c.picture)) << c.file << ' ' << c.width;
    }
}

TEST_F(IconTest, ExtractIconSavesAndTells)
{
    const QString application = m_application.applicationPath();
    m_icons.icons = {{application + QLatin1String("a.exe,0"), {32, 16}},
                     {application + QLatin1String("a.dll,0"), {32, 16}}};
    writeFile(QStringLiteral("app/blue.png"), pictureFile(Qt::blue, 8, 8));
    struct Case
    {
        const char *arguments;
        const char *outcome; ///< what is called back, and the picture saved
        const char *chosen = nullptr; ///< the picture of one's own; empty: cancelled; null: not wanted
    };
    const Case cases[] = {
        {"'a.exe', 'out.png', false, true", "[[\"true\"]] 32x32 #80ff0000"},
        {"'$APP/a.exe', '$APP/out.png', false, false", "[[\"true\"]] 16x16 #ff0000ff"},
        {"'a.exe', 'out.png', false, true, 20, '40'", "[[\"true\"]] 20x40 #80ff0000"},
        {"'a.dll', 'out.png', false, true", "[[\"true\"]] 32x32 #80ff0000"},
        {"'b.exe', 'out.png', false, true", "[[\"exe\"]] "},
        {"'B.EXE', 'out.png', false, true", "[[\"exe\"]] "},
        {"'b.lnk', 'out.png', false, true", "[[\"lnk\"]] "},
        {"'exe', 'out.png', false, true", "[[\"true\"]] "},
        {"'b.txt', 'out.png', false, true", "[[\"true\"]] "}, // only programs tell that there is none
        {"'a.exe', 'no such folder/out.png', false, true", "[[\"exe\"]] "},
        {"'a.exe', 'out.unknown', false, true", "[[\"exe\"]] "},
        {"'w.mscr', 'out.png', false, true", "[[\"mscr\"]] "},
        {"'w.mscr', 'out.png', true, true", "[[\"mscr\"]] "},
        {"'w.mscr', 'out.png', true, true", "[[\"true\"]] 8x8 #ff0000ff", "blue.png"},
        {"'a.exe', 'out.png', true, true, 5, 6", "[[\"true\"]] 5x6 #ff0000ff", "blue.png"},
        {"'a.exe', 'out.png', true, true, 5, 0", "[[\"true\"]] 5x32 #80ff0000", "blue.png"},
        {"'b.exe', 'out.png', true, true", "[[\"exe\"]] ", ""},
    };
    for (const Case &c : cases) {
        QFile::remove(m_dir.filePath(QStringLiteral("app/out.png")));
        const auto yes = c.chosen ? std::make_unique<SaysYes>() : nullptr;
        const DialogAnswer answer([&c](QWidget &dialog) {
            if (*c.chosen)
                tapRow(dialog, QString::fromLatin1(c.chosen));
        });
        const QString told = run(QStringLiteral("results = []; extractIcon(this, cb, %1); results")
                                     .arg(QLatin1String(c.arguments)));
        const QImage saved(m_dir.filePath(QStringLiteral("app/out.png")));
        EXPECT_EQ(told + QLatin1Char(' ') + description(saved), QLatin1String(c.outcome)) << c.arguments;
        EXPECT_EQ(answer.count(), c.chosen ? 1 : 0) << c.arguments;
    }

    QByteArray expected;
    QBuffer buffer(&expected);
    buffer.open(QIODevice::WriteOnly);
    extractIconPixmap(application + QLatin1String("a.exe"), true, 0, 0).toImage().save(&buffer, "jpg", 90);
    run(QStringLiteral("extractIcon(this, cb, 'a.exe', 'out.jpg', false, true)"));
    QFile saved(m_dir.filePath(QStringLiteral("app/out.jpg")));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), expected);
}
