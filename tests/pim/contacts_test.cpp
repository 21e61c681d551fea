#include "pim/outlooktest.h"
#include "support/dialoganswer.h"
#include "support/pictures.h"

#include <QtTest/QTest>

namespace {

class ContactsTest : public OutlookTest
{
protected:
    ContactsTest()
    {
        FakeItem ann{QStringLiteral("Ann Müller")};
        ann.oid = 7;
        ann.texts = {{platform::ContactText::FirstName, QStringLiteral("Ann")},
                     {platform::ContactText::MobileTelephoneNumber, QStringLiteral("555-0101")},
                     {platform::ContactText::YomiLastName, QStringLiteral("ミュラー")}};
        ann.start = 29000; // birthday
        ann.photo = pictureFile(Qt::red, 30, 40);
        FakeItem bob{QStringLiteral("Bob")};
        bob.oid = 8;
        FakeItem broken{QStringLiteral("Carl")};
        broken.oid = 9;
        broken.photo = "no picture";
        FakeItem bomb{QStringLiteral("Dora")};
        bomb.oid = 10;
        // Its header claims more than eight thousand pixels a side.
        bomb.photo = QByteArray("P4 60000 60000\n");
        m_outlook.contacts = {ann, bob, broken, bomb};
        m_outlook.tasks = {{QStringLiteral("a task")}};
        m_outlook.tasks[0].oid = 20;
    }

    void writeFile(const QString &name, const QByteArray &content) const
    {
        QFile file(m_dir.filePath(QLatin1String("app/") + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }

    /// What contactImage() calls back with, and the picture that it saved, such as "true 30x40 #ffff0000".
    QString save(const char *arguments)
    {
        const QString path = m_dir.filePath(QStringLiteral("app/out.png"));
        QFile::remove(path);
        const QString result =
            run(QStringLiteral("results = []; contactImage(this, cb, %1); results.join('|')")
                    .arg(QLatin1String(arguments)));
        return QString(result.mid(1, result.size() - 2) + QLatin1Char(' ') + description(QImage(path)))
            .trimmed();
    }
};

} // namespace

TEST_F(ContactsTest, ContactInfoTellsAllProperties)
{
    EXPECT_EQ(run(QStringLiteral("contactInfo(7, this, cb); var ann = results[0][0];"
                                 "[ann.fileAs, ann.firstName, ann.mobileTelephoneNumber, ann.yomiLastName, "
                                 "ann.email1Address, ann.birthday, ann.anniversary]")),
              QStringLiteral("[\"Ann Müller\",\"Ann\",\"555-0101\",\"ミュラー\",\"\",\"05/25/1979\",\"\"]"));
    EXPECT_EQ(run(QStringLiteral("Object.keys(ann).length")), QStringLiteral("50"));
    EXPECT_EQ(run(QStringLiteral("results = []; contactInfo(99, this, cb); contactInfo(20, this, cb);"
                                 "contactInfo(4294967303, this, cb); contactInfo(7.5, this, cb); results")),
              QStringLiteral("[[null],[null],[null],[null]]"));
}

TEST_F(ContactsTest, ContactImageSavesThePhoto)
{
    const QPair<const char *, const char *> cases[] = {
        {"7, 'out.png', false", "true 30x40 #ffff0000"},
        {"7, 'out.png', false, 10, 20", "true 10x20 #ffff0000"},
        {"7, 'out.png', false, 0, 20", "true 30x20 #ffff0000"},
        {"7, 'out.png', false, 0, 0", "true 30x40 #ffff0000"},
        {"7, 'out.png', false, -1, 5", "false"},
        {"7, 'out.png', false, 100000, 100000", "false"},
        {"7, 'out.unknown', false", "false"},
        {"7, 'no such folder/out.png', false", "false"},
        {"7, 'out.png', true", "true 30x40 #ffff0000"}, // the question is answered with No
        {"8, 'out.png', false", "false"},
        {"9, 'out.png', false", "false"},
        {"10, 'out.png', false", "false"},
        {"20, 'out.png', false", "false"},
        {"99, 'out.png', false", "false"},
    };
    for (const auto &[arguments, expected] : cases)
        EXPECT_EQ(save(arguments), QLatin1String(expected)) << arguments;
    for (const char *kept : {"7, 'notes.txt', false", "7, 'notes', false", "8, 'notes.png', false"}) {
        const QString name = QString::fromLatin1(kept).section(QLatin1Char('\''), 1, 1);
        writeFile(name, "what was there");
        EXPECT_EQ(save(kept), QStringLiteral("false")) << kept;
        EXPECT_EQ(QFileInfo(m_dir.filePath(QLatin1String("app/") + name)).size(), 14) << kept;
    }
    EXPECT_EQ(takeMessages(), QStringList(QStringLiteral("[] Do you want to select a custom Image?")));
}

TEST_F(ContactsTest, ContactImageTakesACustomPicture)
{
    writeFile(QStringLiteral("blue.png"), pictureFile(Qt::blue, 8, 8));
    writeFile(QStringLiteral("broken.jpg"), "no picture");
    writeFile(QStringLiteral("notes.txt"), "no picture either");
    const SaysYes yes;
    struct Case
    {
        const char *chosen; ///< empty: the file selector is cancelled
        const char *arguments;
        const char *outcome;
    };
    const Case cases[] = {
        {"blue.png", "8, 'out.png', true", "true 8x8 #ff0000ff"},
        {"blue.png", "7, 'out.png', true, 5, 6", "true 5x6 #ff0000ff"},
        {"blue.png", "7, 'out.png', true, 5, 0", "true 5x40 #ffff0000"},
        {"broken.jpg", "7, 'out.png', true", "true 30x40 #ffff0000"},
        {"", "7, 'out.png', true", "true 30x40 #ffff0000"},
        {"", "8, 'out.png', true", "false"},
    };
    for (const Case &step : cases) {
        const DialogAnswer answer([&step](QWidget &dialog) {
            EXPECT_EQ(rowsOf(dialog),
                      QStringList(
                          {QStringLiteral(".."), QStringLiteral("blue.png"), QStringLiteral("broken.jpg")}));
            if (*step.chosen)
                tapRow(dialog, QString::fromLatin1(step.chosen));
        });
        EXPECT_EQ(save(step.arguments), QLatin1String(step.outcome)) << step.chosen << ' ' << step.arguments;
        EXPECT_EQ(answer.count(), 1);
    }
}
