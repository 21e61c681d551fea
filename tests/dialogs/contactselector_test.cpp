#include "kestmainprovider/flicklist.h"
#include "pim/outlooktest.h"
#include "support/dialoganswer.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

namespace {

class ContactSelectorTest : public OutlookTest
{
protected:
    void setContacts(const QStringList &names)
    {
        m_outlook.contacts.clear();
        for (const QString &name : names) {
            m_outlook.contacts.push_back({name});
            m_outlook.contacts.back().oid = static_cast<int>(m_outlook.contacts.size()) + 100;
        }
    }

    /// Lets a user do something in the dialog; returns what the callback gets.
    QString select(const std::function<void(QWidget &)> &act)
    {
        const DialogAnswer answer(act);
        const QString results = run(QStringLiteral("results = []; selectContact(this, cb); results"));
        EXPECT_EQ(answer.count(), 1);
        return results;
    }
};

/// The row at the top of the list.
int topRow(const QWidget &dialog)
{
    return dialog.findChild<FlickList *>()->indexAt(QPoint(0, 0)).row();
}

/// Types into the field; "<" deletes the character before the cursor, "!" clears the field.
void type(QWidget &dialog, const QString &keys)
{
    auto *field = dialog.findChild<QLineEdit *>();
    for (const QChar key : keys) {
        if (key == QLatin1Char('<'))
            QTest::keyClick(field, Qt::Key_Backspace);
        else if (key == QLatin1Char('!'))
            field->selectAll(), QTest::keyClick(field, Qt::Key_Delete);
        else
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, key, {});
    }
}

/// Three-letter names from "aaa" on, 26 to a first letter, and others at both ends.
QStringList manyNames()
{
    QStringList names = {QString(), QString()};
    for (char first = 'b'; first <= 'y'; ++first) {
        for (char second = 'a'; second <= 'z'; ++second) {
            for (const char *third : {"", "A", "mm", "Mn", "z"})
                names.append(QChar::fromLatin1(first) + QString(QChar::fromLatin1(second))
                             + QLatin1String(third));
        }
    }
    for (const char *name : {"Änne", "Ärmel", "ÖRTEL", "örz", "ωmega", "写真", "写真館"})
        names.append(QString::fromUtf8(name));
    for (int i = 0; i < 60; ++i)
        names.append(QString(QChar(0xFF5A)) + QString::number(100 + i)); // a full-width z
    return names;
}

} // namespace

TEST_F(ContactSelectorTest, AnswersWithTheIdentifierOnce)
{
    setContacts({QStringLiteral("Ann"), QStringLiteral("Bob"), QStringLiteral("Carl")});
    m_outlook.contacts[1].isFetchable = false;
    EXPECT_EQ(select([](QWidget &dialog) {
                  EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select Contact"));
                  EXPECT_EQ(rowsOf(dialog), QStringList({QStringLiteral("Ann"), QStringLiteral("Carl")}));
                  tapRow(dialog, QStringLiteral("Carl"));
              }),
              QStringLiteral("[[103]]"));
    EXPECT_EQ(select([](QWidget &dialog) { clickOn(dialog, "actionExit"); }), QStringLiteral("[[0]]"));
    EXPECT_EQ(select([](QWidget &dialog) { delete &dialog; }), QStringLiteral("[[0]]"));
    EXPECT_EQ(select([](QWidget &dialog) {
                  QTest::keyPress(dialog.focusWidget(), Qt::Key_Shift);
                  QTest::keyPress(dialog.focusWidget(), Qt::Key_F5);
                  QTest::keyClicks(dialog.focusWidget(), QStringLiteral("An"));
                  QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
                  QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
              }),
              QStringLiteral("[[101]]"));
    m_outlook.hasFolders = false;
    EXPECT_EQ(select([](QWidget &dialog) {
                  type(dialog, QStringLiteral("ab<c"));
                  EXPECT_EQ(rowsOf(dialog), QStringList());
              }),
              QStringLiteral("[[0]]"));
}

TEST_F(ContactSelectorTest, TheHostKnowsOfTheFieldsFocus)
{
    setContacts({QStringLiteral("Ann")});
    m_application.calls.clear();
    select([this](QWidget &dialog) {
        EXPECT_EQ(m_application.calls, QStringList(QStringLiteral("setNativeDialogOpen 1")));
        dialog.findChild<FlickList *>()->setFocus();
        EXPECT_EQ(m_application.calls.size(), 2);
        dialog.findChild<QLineEdit *>()->setFocus();
        m_application.calls.clear();
    });
    EXPECT_EQ(m_application.calls,
              QStringList({QStringLiteral("setNativeDialogOpen 0"), QStringLiteral("callFunction")}));
}

TEST_F(ContactSelectorTest, TypingWalksThroughTheList)
{
    const QStringList names = manyNames();
    setContacts(names);
    const auto row = [&names](const char *name) { return names.indexOf(QString::fromUtf8(name)); };
    const QPair<const char *, int> cases[] = {
        {"b", row("ba")},
        {"B", row("ba")},
        {"d!", 0},
        {"dq", row("dq")},
        {"dqm", row("dqmm")},
        {"dqmn", row("dqMn")},
        {"dqn", row("dqz")}, // nothing begins so: the first one behind
        {"dqmn<", row("dqMn")}, // still begins so
        {"dqz<<", row("da")},
        {"eb<", row("ea")},
        {"e<f", row("fa")},
        {"ä", row("Änne")},
        {"är", row("Ärmel")},
        {"ör", row("ÖRTEL")},
        {"örz", row("örz")},
        {"ω", row("ωmega")},
        {"写真館", row("写真館")},
        {"写真館<", row("写真館")},
        {"m5", row("ma")},
        {"a", 0}, // no such name: the list stays where it is
        {"da<<a", 0},
        {"d!e", row("ea")},
        {"dz<z<z<z", row("dz")},
    };
    for (const auto &[keys, expected] : cases) {
        select([keys = keys, expected = expected](QWidget &dialog) {
            type(dialog, QString::fromUtf8(keys));
            EXPECT_EQ(topRow(dialog), expected)
                << keys << ' ' << rowsOf(dialog).value(topRow(dialog)).toStdString();
        });
    }
}

TEST_F(ContactSelectorTest, TheWalkKeepsItsCounts)
{
    const QStringList names = manyNames();
    setContacts(names);
    select([&names](QWidget &dialog) {
        auto *list = dialog.findChild<FlickList *>();
        // Without a contact for the letter, the walk begins two places before the first, and ends as many
        // before the match.
        type(dialog, QStringLiteral("aa"));
        EXPECT_EQ(topRow(dialog), 0);
        type(dialog, QStringLiteral("!"));
        type(dialog, QStringLiteral("zz"));
        EXPECT_EQ(topRow(dialog), names.indexOf(QStringLiteral("Änne")) - 2);
        // At the end, the last row counts as the position of the one before.
        type(dialog, QStringLiteral("!"));
        type(dialog, QString(QChar(0xFF5A)) + QStringLiteral("999"));
        EXPECT_TRUE(list->visualRect(list->model()->index(names.size() - 1, 0)).isValid());
        EXPECT_GE(list->visualRect(list->model()->index(names.size() - 1, 0)).top(), 0);
        EXPECT_LT(list->visualRect(list->model()->index(names.size() - 1, 0)).top(), list->height());
        type(dialog, QStringLiteral("<<"));
        EXPECT_GT(topRow(dialog), 0);
    });
}

TEST_F(ContactSelectorTest, FiveThousandContactsKeepUpWithTyping)
{
    QStringList names;
    for (int i = 0; i < 5000; ++i)
        names.append(QStringLiteral("name %1").arg(10000 + i));
    setContacts(names);
    select([](QWidget &dialog) {
        // No event loop runs in between, so nothing is painted.
        for (int turn = 0; turn < 20; ++turn)
            type(dialog, QStringLiteral("name 14321<<<<<<<<<<"));
        type(dialog, QStringLiteral("name 14321"));
        EXPECT_EQ(topRow(dialog), 4321);
        tapRow(dialog, QStringLiteral("name 14321"));
    });
    EXPECT_EQ(run(QStringLiteral("results")), QStringLiteral("[[4422]]"));
}
