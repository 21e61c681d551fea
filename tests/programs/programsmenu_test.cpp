#include "programs/programsmenu.h"

#include "kestmainprovider/flicklist.h"
#include "orvanecore/functionarguments.h"
#include "programs/flprogramitem.h"
#include "support/dialoganswer.h"
#include "support/fakeicons.h"
#include "support/pictures.h"
#include "support/providertest.h"

#include <QtCore/QDir>
#include <QtCore/QSettings>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Sees whether files in some folders, or these themselves, are opened or read.
class FolderAccesses
{
public:
    explicit FolderAccesses(const QStringList &folders)
        : m_queue(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        for (const QString &folder : folders)
            EXPECT_GE(
                ::inotify_add_watch(m_queue, QFile::encodeName(folder).constData(), IN_OPEN | IN_ACCESS), 0);
    }
    ~FolderAccesses() { ::close(m_queue); }
    Q_DISABLE_COPY(FolderAccesses)

    /// How often since the last call.
    int take() const
    {
        alignas(inotify_event) char events[65536];
        int count = 0;
        for (ssize_t size = 0; (size = ::read(m_queue, events, sizeof events)) > 0;) {
            for (ssize_t at = 0; at < size; ++count)
                at += static_cast<ssize_t>(sizeof(inotify_event)
                                           + reinterpret_cast<inotify_event *>(events + at)->len);
        }
        return count;
    }

private:
    int m_queue;
};

/// Sets a folder's time back: what has changed just now may change again without its time telling.
void settle(const QString &folder)
{
    static std::time_t time = 1000000000;
    const timespec times[] = {{++time, 0}, {time, 0}};
    EXPECT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(folder).constData(), times, 0), 0);
}

/// Lays the rows out and paints them, which the list does only after a while.
void showRows(QWidget &dialog)
{
    auto &list = *dialog.findChild<FlickList *>();
    list.doItemsLayout();
    list.viewport()->repaint();
}

class ProgramsMenuTest : public ProviderTest
{
protected:
    ProgramsMenuTest()
    {
        m_platform->iconsInForce = &m_icons;
        m_shell->programs = m_programs.toStdU16String();
        for (const char *file : {"Programs/beta.lnk", "Programs/Alpha.LNK", "Programs/icon.lnk",
                                 "Programs/.hidden.lnk", "Programs/notes.txt", "Programs/games/Deep/x.lnk",
                                 "Programs/games/Chess.lnk", "Programs/Tools/icon.lnk"}) {
            makeFile(QString::fromLatin1(file));
            QFile shortcut(m_dir.filePath(QString::fromLatin1(file)));
            EXPECT_TRUE(shortcut.open(QIODevice::WriteOnly));
            shortcut.write("9#\\" + QFileInfo(shortcut).baseName().toLatin1() + ".exe");
        }
        settle(m_programs);
    }
    ~ProgramsMenuTest() override { QSettings().clear(); }

    /// Opens the menu, taps one row after the other ("row|row"), and returns what it showed last.
    QString open(const QString &rows = QString(), const QString &arguments = QString())
    {
        QString shown;
        const DialogAnswer answer([&](QWidget &dialog) {
            const QStringList steps = rows.split(QLatin1Char('|'), Qt::SkipEmptyParts);
            shown = rowsOf(dialog).join(QLatin1Char('|'));
            for (const QString &row : steps) {
                tapRow(dialog, row);
                shown = rowsOf(dialog).join(QLatin1Char('|'));
            }
            showRows(dialog);
        });
        run(QStringLiteral("openProgramsFolder(%1)").arg(arguments));
        EXPECT_EQ(answer.count(), 1);
        return shown;
    }

    /// Of pictures in one colour each: green for the way back, yellow for folders, blue for programs.
    void makeStyle()
    {
        const QPair<const char *, QByteArray> files[] = {
            {"app/styles/back.png", pictureFile(Qt::green, 32, 32)},
            {"app/styles/folder.png", pictureFile(Qt::yellow, 32, 32)},
            {"app/styles/program.png", pictureFile(Qt::blue, 32, 32)},
            {"app/styles/programs_list.xml", R"(<list-style><picture name="BackIconPNG">back.png</picture>
                <picture name="DirIconPNG">folder.png</picture>
                <picture name="ProgramIconPNG">program.png</picture></list-style>)"},
        };
        for (const auto &[path, content] : files) {
            makeFile(QLatin1String(path));
            QFile file(m_dir.filePath(QLatin1String(path)));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
    }

    void setCaches(bool folders, bool icons)
    {
        QSettings settings;
        settings.setValue(QStringLiteral("main/useProgramsCache"), folders);
        settings.setValue(QStringLiteral("main/useProgramsIconCache"), icons);
    }

    QStringList takeAsked() { return std::exchange(m_icons.asked, {}); }

    const QString m_programs = m_dir.filePath(QStringLiteral("Programs"));
    FakeIcons m_icons;
};

const QString topLevel = QStringLiteral("games|Tools|Alpha|beta");

} // namespace

TEST_F(ProgramsMenuTest, LeadsThroughFoldersToAShortcut)
{
    const QPair<const char *, QString> walks[] = {
        {"", topLevel},
        {"games", QStringLiteral("Back|Deep|Chess")},
        {"games|Deep", QStringLiteral("Back|x")},
        {"games|Deep|Back", QStringLiteral("Back|Deep|Chess")},
        {"games|Deep|Back|Back", topLevel},
        {"Tools", QStringLiteral("Back")},
    };
    for (const auto &[rows, shown] : walks)
        EXPECT_EQ(open(QLatin1String(rows)), shown) << rows;
    EXPECT_TRUE(m_shell->executions.empty());

    open(QStringLiteral("games|Chess"));
    ASSERT_EQ(m_shell->executions.size(), 1u);
    EXPECT_EQ(
        QString::fromStdU16String(m_shell->executions.front().file),
        QString(m_programs + QLatin1String("/games/Chess.lnk")).replace(QLatin1Char('/'), QLatin1Char('\\')));
    EXPECT_FALSE(m_shell->executions.front().parameters);
}

TEST_F(ProgramsMenuTest, StartsInTheFolderThatIsNamed)
{
    ASSERT_TRUE(QDir().rename(m_dir.filePath(QStringLiteral("Programs/games")),
                              m_dir.filePath(QStringLiteral("app/games"))));
    const QString backslashes =
        QString(m_dir.filePath(QStringLiteral("app/games"))).replace(QLatin1Char('/'), QLatin1String("\\\\"));
    const struct
    {
        QString argument;
        const char *rows;
        const char *shown;
    } cases[] = {
        {QStringLiteral("'games'"), "", "Deep|Chess"},
        {QStringLiteral("'games'"), "Deep|Back", "Deep|Chess"},
        {QStringLiteral("'$APP/games/'"), "Deep|Back", "Deep|Chess"},
        {QStringLiteral("'%1'").arg(backslashes), "Deep|Back", "Deep|Chess"},
        {QStringLiteral("'/no such folder'"), "", ""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(open(QLatin1String(c.rows), c.argument), QLatin1String(c.shown))
            << c.argument.toStdString();
}

TEST_F(ProgramsMenuTest, LooksAsListDialogsDo)
{
    const DialogAnswer answer([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Programs"));
        EXPECT_EQ(dialog.objectName(), QStringLiteral("ProgramsMenu"));
        EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
        clickOn(dialog, "actionExit");
        EXPECT_FALSE(dialog.isVisible());
    });
    run(QStringLiteral("openProgramsFolder()"));
    EXPECT_EQ(answer.count(), 1);
}

TEST_F(ProgramsMenuTest, PicturesAreMadeForTheRowsThatAreSeen)
{
    m_icons.icons = {{QStringLiteral("\\beta.exe,0"), {32, 16}}};
    for (int i = 0; i < 100; ++i)
        makeFile(QStringLiteral("Programs/z%1.lnk").arg(i));
    setCaches(true, true);
    const QStringList seen(
        {QStringLiteral("\\icon.exe,0"), QStringLiteral("\\Alpha.exe,0"), QStringLiteral("\\beta.exe,0")});
    open();
    EXPECT_EQ(takeAsked(), seen); // the first is that of the folder "Tools"; the others name no program
    EXPECT_LT(ProgramsMenu::iconsCache.size(), 50);
    EXPECT_EQ(ProgramsMenu::iconsCache.value(m_programs + QLatin1String("/beta.lnk")).size(), QSize(32, 32));
    EXPECT_TRUE(ProgramsMenu::iconsCache.value(m_programs + QLatin1String("/games/icon.lnk")).isNull());
    open();
    EXPECT_EQ(takeAsked(), QStringList());
    setCaches(true, false);
    open();
    EXPECT_EQ(takeAsked(), seen);
}

TEST_F(ProgramsMenuTest, TheSecondOpeningReadsNothing)
{
    makeStyle();
    setCaches(true, true);
    EXPECT_EQ(open(), topLevel);
    const FolderAccesses accesses({m_programs, m_programs + QLatin1String("/games"),
                                   m_programs + QLatin1String("/Tools"),
                                   m_dir.filePath(QStringLiteral("app/styles"))});
    EXPECT_EQ(open(), topLevel);
    EXPECT_EQ(accesses.take(), 0);

    setCaches(false, true);
    ProgramsMenu::purgeCaches(QString());
    open();
    EXPECT_GT(accesses.take(), 0);
    EXPECT_TRUE(ProgramsMenu::startFolderCacheDir.empty());
}

TEST_F(ProgramsMenuTest, RowsShowTheirPictures)
{
    makeStyle();
    m_icons.icons = {{QStringLiteral("\\icon.exe,0"), {32, 0}}, {QStringLiteral("\\beta.exe,0"), {32, 0}}};
    const QString icon = QStringLiteral("#ff7f7f"); // half-transparent red on white
    const struct
    {
        const char *rows;
        QStringList pictures;
    } cases[] = {
        {"", {QStringLiteral("#ffff00"), icon, QStringLiteral("#0000ff"), icon}},
        {"games", {QStringLiteral("#00ff00"), QStringLiteral("#ffff00"), QStringLiteral("#0000ff")}},
    };
    for (const auto &c : cases) {
        QStringList pictures;
        const DialogAnswer answer([&](QWidget &dialog) {
            if (*c.rows)
                tapRow(dialog, QLatin1String(c.rows));
            showRows(dialog);
            const QImage shown = dialog.findChild<FlickList *>()->viewport()->grab().toImage();
            for (int row = 0; row < c.pictures.size(); ++row) {
                // Of one colour all over, if the text keeps off it.
                const QImage picture = shown.copy(12, row * 40 + 6, 28, 28);
                const bool isPlain = picture == QImage(picture).scaled(1, 1).scaled(28, 28);
                pictures.append(isPlain ? picture.pixelColor(0, 0).name() : QStringLiteral("several"));
            }
        });
        run(QStringLiteral("openProgramsFolder()"));
        EXPECT_EQ(pictures, c.pictures) << c.rows;
    }
}

TEST_F(ProgramsMenuTest, GoesBackAtSlashesOnly)
{
    struct Case
    {
        QString folder;
        bool leadsToRoot;
        QString parent;
    };
    const QString backslashes = QString(m_programs).replace(QLatin1Char('/'), QLatin1Char('\\'));
    const Case cases[] = {
        {m_programs + QLatin1String("/games"), false, topLevel},
        {m_programs + QLatin1String("/games/"), false, topLevel},
        {m_programs + QLatin1String("/games\\"), false, topLevel},
        {backslashes, false, topLevel}, // stays where it is
        {QStringLiteral("/no such folder"), true, QString()},
    };
    for (const Case &c : cases) {
        const DialogAnswer answer([&](QWidget &dialog) {
            auto &menu = dynamic_cast<ProgramsMenu &>(dialog);
            FLProgramItem folder(FLProgramItem::Kind::Folder, QString(), c.folder);
            menu.clicked(&folder);
            FLProgramItem back(FLProgramItem::Kind::Back, QString(), QString());
            menu.clicked(&back);
            const QStringList rows = rowsOf(dialog);
            EXPECT_EQ(rows.value(0), QStringLiteral("Back"));
            if (c.leadsToRoot)
                EXPECT_TRUE(rows.contains(QLatin1String("usr")));
            else
                EXPECT_EQ(rows.mid(1).join(QLatin1Char('|')), c.parent) << c.folder.toStdString();
        });
        ProgramsMenu().show(QStringLiteral("/nowhere"));
        EXPECT_EQ(answer.count(), 1);
    }
}

TEST_F(ProgramsMenuTest, ChangesWhileItIsShutAreSeen)
{
    open();
    const struct
    {
        std::function<void()> change;
        const char *shown;
    } changes[] = {
        {[this] { makeFile(QStringLiteral("Programs/new.lnk")); }, "games|Tools|Alpha|beta|new"},
        {[this] { makeFile(QStringLiteral("Programs/newer.lnk")); }, "games|Tools|Alpha|beta|new|newer"},
        {[this] {
             QFile::rename(m_programs + QLatin1String("/new.lnk"), m_programs + QLatin1String("/0.lnk"));
         },
         "games|Tools|0|Alpha|beta|newer"},
        {[this] { QFile::remove(m_programs + QLatin1String("/0.lnk")); }, "games|Tools|Alpha|beta|newer"},
        {[this] { QFile::rename(m_programs, m_dir.filePath(QStringLiteral("away"))); }, ""},
        {[this] { QFile::rename(m_dir.filePath(QStringLiteral("away")), m_programs); },
         "games|Tools|Alpha|beta|newer"},
    };
    for (const auto &change : changes) {
        change.change();
        EXPECT_EQ(open(), QLatin1String(change.shown)); // at once, within one step of the file system's time
    }
}

TEST_F(ProgramsMenuTest, CachesAreFilledAndEmptied)
{
    const auto cached = [] {
        QStringList folders;
        for (const auto &folder : ProgramsMenu::startFolderCacheDir)
            folders.append(folder.first.section(QLatin1Char('/'), -1));
        folders.sort();
        return folders.join(QLatin1Char('|'));
    };
    m_provider.configChanged(); // without any settings
    EXPECT_EQ(cached(), QStringLiteral("Programs"));
    EXPECT_FALSE(ProgramsMenu::useIconsCache);
    setCaches(true, true);
    run(QStringLiteral("cacheProgramsFolder(); cacheProgramsFolder('games')"));
    EXPECT_EQ(cached(), QStringLiteral("Programs|games"));
    // What is there is left as it is, even if the folder has changed.
    makeFile(QStringLiteral("Programs/new.lnk"));
    run(QStringLiteral("cacheProgramsFolder()"));
    EXPECT_FALSE(
        ProgramsMenu::startFolderCacheDir.at(m_programs)->shortcuts.contains(QLatin1String("new.lnk")));
    // Only the folder that a menu begins in is kept.
    open(QStringLiteral("games"));
    EXPECT_EQ(cached(), QStringLiteral("Programs|games"));
    EXPECT_TRUE(
        ProgramsMenu::startFolderCacheDir.at(m_programs)->shortcuts.contains(QLatin1String("new.lnk")));

    const auto clear = [this](QScriptValueList arguments) {
        FunctionArguments call(arguments.isEmpty() ? nullptr : &arguments.first(), arguments.size());
        m_provider.clearProgramsFolderCache(&call);
    };
    clear({QStringLiteral("games")});
    EXPECT_EQ(cached(), QStringLiteral("Programs"));
    clear({5});
    EXPECT_EQ(takeMessages(),
              QStringList(QStringLiteral("[Error] openProgramsFolder: Invalid function arguments.")));
    clear({});
    EXPECT_EQ(cached(), QString());
    EXPECT_FALSE(ProgramsMenu::iconsCache.isEmpty());

    open();
    setCaches(false, false);
    m_provider.configChanged();
    EXPECT_EQ(cached(), QString());
    EXPECT_TRUE(ProgramsMenu::iconsCache.isEmpty());
}
