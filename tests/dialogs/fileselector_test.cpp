#include "dialogs/fileselector.h"
#include "dialogs/folderlisting.h"
#include "kestmainprovider/flicklist.h"
#include "support/dialoganswer.h"
#include "support/providertest.h"

#include <QtCore/QDir>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QScrollBar>
#include <unistd.h>

namespace {

QStringList bars(const QString &text)
{
    return text.split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

/// Taps one row after the other ("row|row"). "!name" clicks an action, "*row" only selects a row.
void act(const QWidget &dialog, const QString &steps)
{
    for (const QString &step : bars(steps)) {
        if (step.startsWith(QLatin1Char('!')))
            clickOn(dialog, step.mid(1).toUtf8().constData());
        else if (step.startsWith(QLatin1Char('*')))
            tapRow(dialog, step.mid(1), Qt::RightButton);
        else
            tapRow(dialog, step);
    }
}

class FileSelectorTest : public ProviderTest
{
protected:
    FileSelectorTest()
    {
        for (const char *file :
             {"files/b.txt", "files/A.JPG", "files/.hidden", "files/plain", "files/Sub/deep.txt",
              "files/alpha/x", "files/.secret/x", "app/pictures/one.png", "files/写真 und Töne.jpg"})
            makeFile(QString::fromUtf8(file));
        QFile::link(QStringLiteral("loop"), m_dir.filePath(QStringLiteral("files/loop")));
    }

    QString files(const char *below = "") const
    {
        return m_dir.filePath(QStringLiteral("files")) + QString::fromUtf8(below);
    }
};

} // namespace

TEST_F(FileSelectorTest, BrowseFilesReadsItsArguments)
{
    const char all[] = "..|alpha|Sub|.hidden|A.JPG|b.txt|loop|plain|写真 und Töne.jpg";
    struct Case
    {
        const char *arguments;
        const char *rows;
        bool hasSelect;
    };
    const Case cases[] = {
        {"", "..|pictures", false},
        {", 5", "..|pictures", false},
        {", 'pictures'", "..|one.png", false},
        {", '$FILES'", all, false},
        {", '$FILES', ''", all, false},
        {", '$FILES', '*.*'", all, false},
        {", '$FILES', '*.jpg;*.txt'", "..|alpha|Sub|A.JPG|b.txt|写真 und Töne.jpg", false},
        {", '$FILES', ';'", "..|alpha|Sub", false},
        {", '$FILES', '?l[a-i]in;*[*]*;**.t?t;*i*i*;*写*und*'", "..|alpha|Sub|b.txt|plain|写真 und Töne.jpg",
         false},
        {", '$FILES', 'b*txt*txt;txt;[;b.tx;.txt;b.txtx*'", "..|alpha|Sub", false},
        {", '$FILES', 5", all, false},
        {", '$FILES', 'b*', false", "b.txt", false},
        {", '$FILES', 'b*', true", "..|alpha|Sub|b.txt", false},
        {", '$FILES', 'b*', 0", "..|alpha|Sub|b.txt", false},
        {", '$FILES', 'b*', false, false", "..|alpha|Sub|b.txt", false},
        {", '$FILES', 'b*', false, true", "..|alpha|Sub", true},
        {", '$FILES', 'b*', true, 'yes'", "..|alpha|Sub", true},
        {", '$FILES', 'b*', 0, true", "..|alpha|Sub|b.txt", false},
        {", '$FILES/none'", "..", false},
        {", '\\\\nowhere'", "..", false},
    };
    for (const Case &c : cases) {
        const DialogAnswer answer([&c](QWidget &dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("File Browser"));
            EXPECT_TRUE(dialog.isMaximized());
            EXPECT_EQ(rowsOf(dialog), bars(QString::fromUtf8(c.rows))) << c.arguments;
            EXPECT_EQ(dialog.findChild<QAction *>(QStringLiteral("actionSelect")) != nullptr, c.hasSelect)
                << c.arguments;
        });
        const QString arguments = QString::fromUtf8(c.arguments).replace(QLatin1String("$FILES"), files());
        EXPECT_EQ(run(QStringLiteral("results = []; browseFiles(this, cb%1); results").arg(arguments)),
                  QStringLiteral("[[null]]"));
        EXPECT_EQ(answer.count(), 1) << c.arguments;
    }
}

TEST_F(FileSelectorTest, WhereClicksLead)
{
    struct Case
    {
        QString directory;
        bool folderMode;
        bool noneButton;
        const char *actions;
        QString result;
        const char *rowsBefore; ///< when the last action comes; null: any
    };
    const Case cases[] = {
        {files(), false, false, "b.txt", files("/b.txt"), nullptr},
        {files(), false, false, "写真 und Töne.jpg", files("/写真 und Töne.jpg"), nullptr},
        {files(), false, false, "loop", files("/loop"), nullptr},
        {files("/"), false, false, "Sub|deep.txt", files("/Sub/deep.txt"), "..|deep.txt"},
        {files("/Sub/"), false, false, "..|b.txt", files("/b.txt"), nullptr},
        {files("/Sub"), false, false, "..|alpha|..|..|app|pictures|one.png",
         m_dir.filePath(QStringLiteral("app/pictures/one.png")), nullptr},
        {files(), false, false, "*b.txt|!actionExit", QString(), nullptr},
        {files(), false, true, "!actionSelect|!actionExit", QString(), nullptr},
        {files(), false, true, "*b.txt|!actionSelect", QStringLiteral("None"), nullptr},
        {files(), true, false, "!actionSelect|*Sub|!actionSelect", files(), "..|alpha|Sub"},
        {files(), true, true, "Sub|*..|!actionSelect", files("/Sub"), ".."},
        // One step up from a first folder is the root, which has no way up.
        {QStringLiteral("/nowhere"), true, false, "..|*tmp|!actionSelect", QStringLiteral("/"), nullptr},
        // Only slashes count.
        {QStringLiteral("none\\at\\all"), true, false, "..|..", QString(), ".."},
        {QStringLiteral("none/at\\all\\"), true, false, "..|..", QString(), ".."},
    };
    for (const Case &c : cases) {
        const DialogAnswer answer([&c](QWidget &dialog) {
            const QString actions = QString::fromUtf8(c.actions);
            act(dialog, actions.section(QLatin1Char('|'), 0, -2));
            if (c.rowsBefore) {
                EXPECT_EQ(rowsOf(dialog), bars(QString::fromUtf8(c.rowsBefore))) << c.actions;
            }
            if (const auto *select = dialog.findChild<QAction *>(QStringLiteral("actionSelect"))) {
                EXPECT_EQ(select->text(), c.folderMode ? QStringLiteral("Select") : QStringLiteral("None"));
            }
            act(dialog, actions.section(QLatin1Char('|'), -1));
            EXPECT_EQ(dialog.isVisible(),
                      c.result.isEmpty() && !actions.endsWith(QLatin1String("actionExit")))
                << c.actions;
        });
        FileSelector selector;
        selector.show(c.directory, true, QString(), c.folderMode, c.noneButton, QString());
        EXPECT_EQ(selector.result(), c.result) << c.actions;
    }
}

TEST_F(FileSelectorTest, MarksTheFileOfThatName)
{
    for (int i = 0; i < 40; ++i)
        makeFile(QStringLiteral("files/z%1").arg(i));
    for (const auto &[name, row] :
         {std::pair{"b.txt", 5}, {"z9", 47}, {"B.TXT", -1}, {"Sub", -1}, {"", -1}}) {
        const DialogAnswer answer([name = name, row = row](QWidget &dialog) {
            auto *list = dialog.findChild<FlickList *>();
            EXPECT_EQ(list->selectedRow(), row) << name;
            EXPECT_EQ(list->verticalScrollBar()->value(), 0) << name;
            act(dialog, QStringLiteral("Sub|.."));
            EXPECT_EQ(list->selectedRow(), -1) << name; // only at the start
        });
        FileSelector selector;
        selector.show(files(), true, QString(), false, false, QLatin1String(name));
        EXPECT_EQ(answer.count(), 1);
    }
}

TEST_F(FileSelectorTest, FoldersThatVanishOrAreClosed)
{
    const DialogAnswer answer([this](QWidget &dialog) {
        EXPECT_TRUE(QDir(files("/Sub")).removeRecursively());
        act(dialog, QStringLiteral("Sub"));
        EXPECT_EQ(rowsOf(dialog), QStringList(QStringLiteral("..")));
        EXPECT_TRUE(QDir(files()).removeRecursively());
        act(dialog, QStringLiteral("..|..|app|pictures|one.png"));
    });
    FileSelector selector;
    selector.show(files(), true, QString(), false, false, QString());
    EXPECT_TRUE(selector.result().endsWith(QLatin1String("app/pictures/one.png")));

    const QByteArray closed = QFile::encodeName(m_dir.filePath(QStringLiteral("app")));
    ASSERT_EQ(chmod(closed.constData(), 0), 0);
    constexpr uid_t nobody = 65534;
    const uid_t user = geteuid();
    const bool isChanged = user == 0 && seteuid(nobody) == 0; // root may read everything
    const FolderListing listing = listFolder(QFile::decodeName(closed), {QStringLiteral("*.*")});
    if (isChanged) {
        ASSERT_EQ(seteuid(user), 0);
    }
    ASSERT_EQ(chmod(closed.constData(), 0700), 0);
    EXPECT_EQ(listing.files + listing.folders, QStringList());
}

TEST_F(FileSelectorTest, SurvivesItsDestruction)
{
    const DialogAnswer answer([](QWidget &dialog) { delete &dialog; });
    EXPECT_EQ(run(QStringLiteral("browseFiles(this, cb); listInput(this, cb, 'l', 0, ['a']); results")),
              QStringLiteral("[[null],[false,null,-1]]"));
    EXPECT_EQ(answer.count(), 2);
}
