#include "kestmainprovider/listeditor.h"

#include "kestmainprovider/flicklist.h"

#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <gmock/gmock.h>

namespace {

class ListEditorTest : public testing::Test
{
protected:
    /// Shows the entries, which "|" separates, and takes steps: "tap 3" on a row, "press add" on a button,
    /// "type text", or a key's name for what has the focus. Returns "accepted" or "cancelled", index, text,
    /// list.
    QString show(const QString &entries, int index, const QString &steps, bool editable = false,
                 bool pairs = false)
    {
        QTimer::singleShot(0, &m_editor, [this, steps] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&m_editor));
            m_atStart = list().selectedRow();
            for (const QString &step : steps.split(QLatin1String(", ")))
                take(step.section(QLatin1Char(' '), 0, 0), step.section(QLatin1Char(' '), 1));
            EXPECT_FALSE(m_editor.isVisible()) << steps.toStdString();
            m_editor.close();
        });
        const QStringList list = entries.isEmpty() ? QStringList() : entries.split(QLatin1Char('|'));
        const bool isAccepted = m_editor.show(list, index, editable, pairs);
        return QStringLiteral("%1 %2 \"%3\" %4")
            .arg(isAccepted ? QLatin1String("accepted") : QLatin1String("cancelled"))
            .arg(m_editor.index())
            .arg(m_editor.text(), m_editor.list().join(QLatin1Char('|')));
    }

    FlickList &list() { return *m_editor.findChild<FlickList *>(QStringLiteral("list")); }

    ListEditor m_editor;
    int m_atStart = -2; ///< the row selected at first

private:
    void take(const QString &verb, const QString &object)
    {
        auto *entry = m_editor.findChild<QLineEdit *>(QStringLiteral("entry"));
        if (verb == QLatin1String("tap")) {
            const QRect row = list().visualRect(list().model()->index(object.toInt(), 0));
            QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, row.center());
        } else if (verb == QLatin1String("press")) {
            QTest::mouseClick(buttonNamed(object), Qt::LeftButton);
        } else if (verb == QLatin1String("type")) {
            entry->setFocus();
            entry->selectAll();
            QTest::keyClicks(entry, object);
        } else {
            const QKeySequence key(verb);
            QTest::keyClick(m_editor.focusWidget(), static_cast<Qt::Key>(key[0]));
        }
    }

    QAbstractButton *buttonNamed(const QString &name) const
    {
        if (name == QLatin1String("ok"))
            return m_editor.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        return m_editor.findChild<QAbstractButton *>(name + QLatin1String("Button"));
    }
};

} // namespace

TEST_F(ListEditorTest, ChoosesAndEdits)
{
    enum Mode { Choose, Edit, Pairs, EditPairs };
    const struct
    {
        const char *entries;
        int index;
        int selectedAtFirst;
        Mode mode;
        const char *steps;
        const char *outcome;
    } cases[] = {
        {"a|b|c", -1, -1, Choose, "tap 1", "accepted 1 \"b\" a|b|c"},
        {"a|b|c", 2, 2, Choose, "press ok", "accepted 2 \"c\" a|b|c"},
        {"a|b|c", 1, 1, Choose, "Down, Enter", "accepted 2 \"c\" a|b|c"},
        {"a|b|c", 1, 1, Choose, "Escape", "cancelled -1 \"\" a|b|c"},
        {"a|b|c", 3, -1, Choose, "press ok, Enter, Escape", "cancelled -1 \"\" a|b|c"},
        {"", 0, -1, Choose, "press ok, Down, Enter, Escape", "cancelled -1 \"\" "},
        {"a|1|b|2|c", 1, 1, Pairs, "press ok", "accepted 1 \"2\" a|1|b|2|c"},
        {"a|1|b|2|c", 5, -1, Pairs, "tap 2", "accepted 2 \"\" a|1|b|2|c"},
        {"a|1|b|2", 0, 0, EditPairs, "type x, tap 1", "accepted 1 \"2\" a|1|b|2"},
        {"a|b|c", 0, 0, Edit, "tap 1, tap 0, Enter, press ok", "accepted 0 \"a\" a|b|c"},
        {"a|b|c", 0, 0, Edit, "type x, press add, press ok", "accepted 1 \"x\" a|x|b|c"},
        {"", 0, -1, Edit, "press add, type x, Enter, type y, Enter, press ok", "accepted 1 \"y\" x|y"},
        {"a|b", -1, -1, Edit, "press change, press remove, press up, press down, type x, Enter, Escape",
         "cancelled -1 \"\" a|b|x"},
        {"a|b|c", 1, 1, Edit, "type x, press change, press ok", "accepted 1 \"x\" a|x|c"},
        {"a|b|c", 1, 1, Edit, "press remove, press ok", "accepted 1 \"c\" a|c"},
        {"a|b|c", 2, 2, Edit, "press remove, press ok", "accepted 1 \"b\" a|b"},
        {"a", 0, 0, Edit, "press remove, press remove, press ok", "accepted -1 \"\" "},
        {"a|b|c", 1, 1, Edit, "press up, press up, press ok", "accepted 0 \"b\" b|a|c"},
        {"a|b|c", 1, 1, Edit, "press down, press down, press ok", "accepted 2 \"b\" a|c|b"},
    };
    for (const auto &c : cases) {
        const bool isEditable = c.mode == Edit || c.mode == EditPairs;
        const bool hasPairs = c.mode == Pairs || c.mode == EditPairs;
        EXPECT_EQ(
            show(QString::fromLatin1(c.entries), c.index, QString::fromLatin1(c.steps), isEditable, hasPairs)
                .toStdString(),
            c.outcome)
            << c.steps;
        EXPECT_EQ(m_atStart, c.selectedAtFirst) << c.entries << ' ' << c.steps;
    }
}

TEST_F(ListEditorTest, OpensAtOnceHoweverLongTheListIs)
{
    const QSignalSpy insertions(list().model(), &QAbstractItemModel::rowsInserted);
    const QString entries = QStringLiteral("entry|").repeated(10000) + QLatin1String("last");
    EXPECT_EQ(show(entries, 10000, QStringLiteral("press ok")).toStdString(),
              "accepted 10000 \"last\" " + entries.toStdString());
    EXPECT_EQ(insertions.count(), 0) << "rows come one by one";
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().currentIndex())));
}
