#include "dialogs/numberdialogs.h"
#include "orvanecore/functionarguments.h"
#include "support/dialoganswer.h"
#include "support/providertest.h"

#include <QtTest/QTest>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QSpinBox>

namespace {

const QStringList noticed = {QStringLiteral("setNativeDialogOpen 1"), QStringLiteral("setNativeDialogOpen 0"),
                             QStringLiteral("callFunction")};

/// Types into what has the focus, then presses a key.
void type(const char *text, Qt::Key key)
{
    QWidget *focus = QApplication::focusWidget();
    ASSERT_TRUE(focus);
    QTest::sendKeyEvent(QTest::Click, focus, Qt::Key_unknown, QString::fromUtf8(text), Qt::NoModifier);
    QTest::keyClick(focus, key);
}

} // namespace

TEST_F(ProviderTest, TextInputAsksForALine)
{
    struct Case
    {
        const char *typed;
        Qt::Key key;
        const char *results;
    };
    const Case cases[] = {
        {"", Qt::Key_Return, "[[true,\"Ann\"]]"},
        {"Zoë 你好", Qt::Key_Return, "[[true,\"Zoë 你好\"]]"},
        {"lost", Qt::Key_Escape, "[[false,\"\"]]"},
    };
    for (const Case &c : cases) {
        const DialogAnswer answer([&c](QWidget &dialog) {
            const auto &input = dynamic_cast<QInputDialog &>(dialog);
            EXPECT_EQ(input.labelText(), QStringLiteral("Who?"));
            EXPECT_EQ(input.windowTitle(), QString());
            EXPECT_EQ(input.textEchoMode(), QLineEdit::Normal);
            type(c.typed, c.key);
        });
        m_application.calls.clear();
        EXPECT_EQ(run(QStringLiteral("results = []; textInput('Who?', 'Ann', this, cb); results")),
                  QString::fromUtf8(c.results));
        EXPECT_EQ(answer.count(), 1);
        EXPECT_EQ(m_application.calls, noticed);
    }
}

// The maximum and the step are read one place too early.
TEST_F(ProviderTest, NumInputReadsItsArguments)
{
    constexpr int least = -2147483647;
    constexpr int most = 2147483647;
    struct Case
    {
        const char *arguments;
        int value;
        int minimum;
        int maximum;
        int step;
    };
    const Case cases[] = {
        {"5", 5, least, most, 1},
        {"5.9", 5, least, most, 1},
        {"5, -3", 5, -3, most, 1},
        {"5, '-3'", 5, least, most, 1},
        {"5, 0, 10", 0, 0, 0, 1},
        {"5, 0, '10'", 5, 0, most, 1},
        {"5, '8', 10", 5, least, 8, 1},
        {"5, 0, 10, 2", 0, 0, 0, 10},
        {"5, null, '10', 2", 5, least, most, 10},
        {"5, 0, 10, '2'", 0, 0, 0, 1},
        {"5, 0, 10, 2, true", 0, 0, 0, 1},
    };
    for (const Case &c : cases) {
        for (const bool accept : {true, false}) {
            const DialogAnswer answer([&c, accept](QWidget &dialog) {
                auto &input = dynamic_cast<QInputDialog &>(dialog);
                EXPECT_EQ(input.inputMode(), QInputDialog::IntInput) << c.arguments;
                EXPECT_EQ(input.labelText(), QStringLiteral("How many?"));
                EXPECT_EQ(input.intValue(), c.value) << c.arguments;
                EXPECT_EQ(input.intMinimum(), c.minimum) << c.arguments;
                EXPECT_EQ(input.intMaximum(), c.maximum) << c.arguments;
                EXPECT_EQ(input.intStep(), c.step) << c.arguments;
                QTest::keyClick(QApplication::focusWidget(), accept ? Qt::Key_Return : Qt::Key_Escape);
            });
            m_application.calls.clear();
            const QString script =
                QStringLiteral("results = []; numInput(this, cb, 'How many?', %1); results");
            // A cancelled dialog reports the value that it was called with, whatever the bounds.
            const int given = QByteArray(c.arguments).startsWith("5") ? 5 : 0;
            EXPECT_EQ(run(script.arg(QLatin1String(c.arguments))),
                      accept ? QStringLiteral("[[true,%1]]").arg(c.value)
                             : QStringLiteral("[[false,%1]]").arg(given))
                << c.arguments;
            EXPECT_EQ(answer.count(), 1);
            EXPECT_EQ(m_application.calls, noticed);
        }
    }
}

// No call reaches this, but it answers as numInput() would.
TEST_F(ProviderTest, FractionsAreCutToWholeNumbers)
{
    struct Case
    {
        const char *arguments;
        const char *typed;
        int decimals;
        int value;
    };
    const Case cases[] = {
        {"[0, 0, 'How much?', 0.5]", "2.99", 2, 2},
        {"[0, 0, 'How much?', 0.5, -9]", "-2.99", 2, -2},
        {"[0, 0, 'How much?', 0.5, 3.7, 9, 1]", "8", 9, 3},
    };
    for (const Case &c : cases) {
        const QScriptValue array = m_application.engine().evaluate(QLatin1String(c.arguments));
        QVector<QScriptValue> values;
        for (quint32 i = 0; i < array.property(QStringLiteral("length")).toUInt32(); ++i)
            values.append(array.property(i));
        const DialogAnswer answer([&c](QWidget &dialog) {
            EXPECT_EQ(dynamic_cast<QInputDialog &>(dialog).doubleDecimals(), c.decimals);
            type(c.typed, Qt::Key_Return);
        });
        const NumberAnswer number = askFraction(FunctionArguments(values.constData(), values.size()));
        EXPECT_TRUE(number.ok);
        EXPECT_EQ(number.value, c.value) << c.arguments;
    }
}

TEST_F(ProviderTest, TheHostHearsOfTheEndOfADialogHoweverItEnds)
{
    const std::function<void(QWidget &)> ends[] = {
        [](QWidget &dialog) { dialog.deleteLater(); },
        [](QWidget &) { QCoreApplication::exit(); },
    };
    for (const auto &end : ends) {
        for (const char *script :
             {"textInput('Who?', 'Ann', this, cb)", "numInput(this, cb, 'How many?', 5)"}) {
            m_application.calls.clear();
            QObject context;
            QMetaObject::invokeMethod(
                &context,
                [&] {
                    const DialogAnswer answer([&end](QWidget &dialog) {
                        end(dialog);
                        QCoreApplication::sendPostedEvents(&dialog, QEvent::DeferredDelete);
                    });
                    run(QLatin1String(script));
                    QCoreApplication::exit();
                },
                Qt::QueuedConnection);
            QCoreApplication::exec();
            EXPECT_EQ(m_application.calls, noticed) << script;
        }
    }
    EXPECT_EQ(run(QStringLiteral("results.join('; ')")),
              QStringLiteral("\"false,; false,5; false,; false,5\""));
}
