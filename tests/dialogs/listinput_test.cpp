#include "kestmainprovider/flicklist.h"
#include "support/dialoganswer.h"
#include "support/providertest.h"

#include <QtTest/QTest>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace {

/// What is done with the dialog: "ok", "cancel", "add x" (then ok), or the row that is tapped.
void answerList(QWidget &dialog, const QString &action)
{
    if (action.startsWith(QLatin1String("add "))) {
        QTest::keyClicks(dialog.findChild<QLineEdit *>(), action.mid(4)); // what is in there is selected
        clickOn(dialog, "addButton");
    } else if (action == QLatin1String("cancel")) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
        return;
    } else if (action != QLatin1String("ok")) {
        tapRow(dialog, action);
        return;
    }
    QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
}

} // namespace

TEST_F(ProviderTest, ListInputReadsItsArguments)
{
    struct Case
    {
        const char *arguments; ///< behind the label
        const char *action; ///< null: no dialog opens
        const char *results; ///< of the callback
        const char *message = "";
        int selected = 0; ///< when the dialog opens
    };
    const Case cases[] = {
        {"1, ['a', 'b', 'c']", "ok", "[[true,\"b\",1]]", "", 1},
        {"1, ['a', 'b', 'c']", "c", "[[true,\"c\",2]]", "", 1},
        {"1, ['a', 'b', 'c']", "cancel", "[[false,null,-1]]", "", 1},
        {"2.9, [1, null, true, 'd']", "ok", "[[true,\"true\",2]]", "", 2},
        {"-1, ['a', 'b']", "b", "[[true,\"b\",1]]", "", -1},
        {"7, ['a', 'b']", "cancel", "[[false,null,-1]]", "", -1},
        {"0, []", "cancel", "[[false,null,-1]]", "", -1},
        {"1, ['x', '1', 'y', '2'], true", "ok", "[[true,\"2\",1]]", "", 1},
        {"1, ['x', '1', 'y', '2'], false", "ok", "[[true,\"1\",1]]", "", 1},
        {"1, ['x', '1', 'y', '2'], 1", "ok", "[[true,\"1\",1]]", "", 1},
        {"0, (function() { var a = []; a.length = 4294967295; return a; })()", nullptr, "[]",
         "Invalid function arguments."},
        // Stored "a;b,c;b", "x;1;y;2" and the number 5.
        {"1, 'l', 'abc'", "ok", "[[true,\"b,c\",1]]", "", 1},
        {"1, 'l', 'abc', ','", "ok", "[[true,\"c;b\",1]]", "", 1},
        {"1, 'l', 'abc', 5", "ok", "[[true,\"b,c\",1]]", "", 1},
        {"0, 'l', 'five'", "ok", "[[true,\"5\",0]]"},
        {"1, 'l', 'none'", nullptr, "[[false,null,0]]"},
        {"1, 'l', 'pairs', ';', true", "ok", "[[true,\"2\",1]]", "", 1},
        {"1, 'l', 'pairs', ';', true", "x", "[[true,\"1\",0]]", "", 1},
        {"'b', 'l', 'abc'", nullptr, "[]", "Invalid Index."},
        {"'b', 'l', 'abc', ';', false, true", nullptr, "[]", "Invalid Index."},
        {"'b', 'l', 'abc', ';', false, null", nullptr, "[]", "Invalid Index."},
        {"'b', 'l', 'abc', ';', false, undefined", "ok", "[[true,\"b\",2]]", "", 2},
        {"'b', 'l', 'abc', ';', false, false", "ok", "[[true,\"b\",2]]", "", 2},
        {"'B', 'l', 'abc', ';', false, false", "ok", "[[true,\"a\",0]]"},
        {"'2', 'l', 'pairs', ';', true, false", "ok", "[[true,\"2\",1]]", "", 1},
        {"'y', 'l', 'pairs', ';', true, 0", "ok", "[[true,\"1\",0]]"},
        {"1, 'l', 'abc', ';', true, true, true", nullptr, "[]", "Cannot edit with valueOnOdd set to true."},
        {"'b', 'l', 'abc', ';', true, true, true", nullptr, "[]", "Cannot edit with valueOnOdd set to true."},
    };
    for (const Case &c : cases) {
        const DialogAnswer answer([&c](QWidget &dialog) {
            EXPECT_EQ(dialog.findChild<FlickList *>()->selectedRow(), c.selected) << c.arguments;
            answerList(dialog, QString::fromUtf8(c.action));
        });
        const QString call = QStringLiteral("results = []; listInput(this, cb, 'Pick', %1); results");
        run(QStringLiteral("setConfig('l', 'abc', 'a;b,c;b', 'pairs', 'x;1;y;2', 'five', 5)"));
        EXPECT_EQ(run(call.arg(QLatin1String(c.arguments))), QLatin1String(c.results)) << c.arguments;
        EXPECT_EQ(answer.count(), c.action ? 1 : 0) << c.arguments;
        const QStringList messages = takeMessages();
        EXPECT_EQ(messages.join(QLatin1Char('|')),
                  *c.message ? QLatin1String("[Error] listInput: ") + QLatin1String(c.message) : QString())
            << c.arguments;
        EXPECT_EQ(run(QStringLiteral("results = []; getConfig('l', this, cb, 'abc'); results")),
                  QStringLiteral("[[[\"a;b,c;b\"]]]"))
            << c.arguments;
    }
    EXPECT_FALSE(m_application.calls.contains(QLatin1String("setNativeDialogOpen 1")));
}

// It is read with the separator given, and always written with ";".
TEST_F(ProviderTest, ListInputStoresWhatWasEdited)
{
    struct Case
    {
        const char *before;
        const char *action;
        const char *after;
        const char *results;
    };
    const Case cases[] = {
        {"'a,b'", "ok", "\"a;b\"", "[true,\"a\",0]"},
        {"'a,b'", "add new", "\"a;new;b\"", "[true,\"new\",1]"},
        {"'a,b'", "cancel", "\"a,b\"", "[false,null,-1]"},
        {"''", "add new", "\";new\"", "[true,\"new\",1]"},
        {"null", "add new", "\"new\"", "[true,\"new\",0]"},
        {"null", "ok", "\"\"", "[true,\"\",-1]"},
    };
    for (const Case &c : cases) {
        const DialogAnswer answer([&c](QWidget &dialog) { answerList(dialog, QString::fromUtf8(c.action)); });
        const QString script = QStringLiteral(
            "results = []; deleteConfig('l'); if (%1 !== null) setConfig('l', 'k', %1);"
            "listInput(this, cb, 'Edit', 0, 'l', 'k', ',', false, true, true); getConfig('l', this, cb, 'k');"
            "results");
        EXPECT_EQ(run(script.arg(QLatin1String(c.before))),
                  QStringLiteral("[%1,[[%2]]]").arg(QLatin1String(c.results), QLatin1String(c.after)))
            << c.before << c.action;
    }
}
