#include "kestmainprovider/flicklist.h"

#include "kestmainprovider/flickliststyle.h"
#include "kestmainprovider/flicklisttextitem.h"

#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>
#include <gmock/gmock.h>

namespace {

constexpr int rowHeight = 30;

/// Writes down what becomes of rows, by their number: "styled 3", "painted 3".
class Row : public FlickListTextItem
{
public:
    Row(int number, const QString &text, QStringList &log)
        : FlickListTextItem(text)
        , m_number(number)
        , m_log(log)
    {
    }
    ~Row() override { m_log.append(QStringLiteral("gone")); }
    Q_DISABLE_COPY(Row)

    void styled(const FlickListStyle &) override { m_log.append(QStringLiteral("styled %1").arg(m_number)); }
    void paint(QPainter *painter) override
    {
        m_log.append(QStringLiteral("painted %1").arg(m_number));
        FlickListTextItem::paint(painter);
    }

private:
    int m_number;
    QStringList &m_log;
};

class FlickListTest : public testing::Test
{
protected:
    FlickListTest()
    {
        QObject::connect(&m_list, &FlickList::clicked, &m_list,
                         [this](IFlickListItem *item) { m_clicks.append(item->text()); });
        m_list.setListStyle(&m_style);
        m_list.resize(240, 10 * rowHeight);
        m_list.show();
        m_list.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_list));
        m_list.setFocus();
    }

    void fill(int count)
    {
        m_list.clear();
        m_list.beginInitialize();
        for (int i = 0; i < count; ++i)
            m_list.addItem(std::make_unique<Row>(i, QStringLiteral("row %1").arg(i), m_log));
        m_list.endInitialize();
    }

    QPoint middleOf(int visibleRow) const { return QPoint(100, visibleRow * rowHeight + rowHeight / 2); }

    void tap(int visibleRow)
    {
        QTest::mouseClick(m_list.viewport(), Qt::LeftButton, {}, middleOf(visibleRow));
    }

    /// Drags upwards in steps, at a finger's pace, and lets go.
    void drag(int pixels)
    {
        QWidget *viewport = m_list.viewport();
        QPoint finger = middleOf(9);
        QTest::mousePress(viewport, Qt::LeftButton, {}, finger);
        for (int moved = 0; moved < pixels; moved += 10) {
            finger.ry() -= 10;
            QTest::mouseMove(viewport, finger, 5);
            // mouseMove() tells of no button.
            QMouseEvent move(QEvent::MouseMove, finger, viewport->mapToGlobal(finger), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(viewport, &move);
        }
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, finger);
    }

    int position() const { return m_list.verticalScrollBar()->value(); }

    QStringList m_log;
    QStringList m_clicks;
    FlickListStyle m_style;
    FlickList m_list;
};

} // namespace

TEST_F(FlickListTest, ATapSelectsAndClicks)
{
    fill(100);
    tap(3);
    EXPECT_EQ(m_clicks, QStringList(QStringLiteral("row 3")));
    EXPECT_EQ(m_list.selectedRow(), 3);
    EXPECT_TRUE(m_list.item(3)->isSelected());
    for (const auto modifier :
         {Qt::NoModifier, Qt::ControlModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
        QTest::mouseClick(m_list.viewport(), Qt::LeftButton, modifier, middleOf(4));
        EXPECT_FALSE(m_list.item(3)->isSelected());
        EXPECT_TRUE(m_list.item(4)->isSelected());
        EXPECT_EQ(m_list.selectedRow(), 4);
    }
    EXPECT_EQ(m_clicks.size(), 5);
}

TEST_F(FlickListTest, ALongPressAndTheRightButtonOnlySelect)
{
    fill(100);
    QTest::mousePress(m_list.viewport(), Qt::LeftButton, {}, middleOf(2));
    QTest::qWait(750);
    QTest::mouseRelease(m_list.viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(m_list.selectedRow(), 2);
    QTest::mouseClick(m_list.viewport(), Qt::RightButton, {}, middleOf(5));
    EXPECT_EQ(m_list.selectedRow(), 5);
    EXPECT_EQ(m_clicks, QStringList());
}

TEST_F(FlickListTest, AFlickScrollsOnAndNeverClicks)
{
    fill(100000);
    m_list.selectRow(1);
    drag(120);
    const int released = position();
    EXPECT_GT(released, 50);
    EXPECT_TRUE(QTest::qWaitFor([&] { return position() > released + 50; })) << position();
    ASSERT_EQ(QScroller::scroller(m_list.viewport())->state(), QScroller::Scrolling);
    tap(5); // stops it
    QTest::qWait(50);
    const int stopped = position();
    QTest::qWait(100);
    EXPECT_EQ(position(), stopped);
    EXPECT_EQ(m_clicks, QStringList());
    EXPECT_EQ(m_list.selectedRow(), 1);
    tap(5);
    EXPECT_EQ(m_clicks.size(), 1);
}

TEST_F(FlickListTest, KeysAndWheel)
{
    fill(100);
    struct Step
    {
        int key;
        int selected;
        int clicks;
    };
    const Step steps[] = {
        {Qt::Key_Return, -1, 0}, {Qt::Key_Down, 0, 0},  {Qt::Key_Down, 1, 0},    {Qt::Key_Up, 0, 0},
        {Qt::Key_Up, 0, 0},      {Qt::Key_End, 99, 0},  {Qt::Key_Home, 0, 0},    {Qt::Key_PageDown, 9, 0},
        {Qt::Key_Enter, 9, 1},   {Qt::Key_Down, 10, 1}, {Qt::Key_Return, 10, 2},
    };
    for (const Step &step : steps) {
        QTest::keyClick(&m_list, static_cast<Qt::Key>(step.key));
        EXPECT_EQ(m_list.selectedRow(), step.selected) << step.key;
        EXPECT_EQ(m_clicks.size(), step.clicks) << step.key;
    }
    EXPECT_GT(position(), 0); // what is selected is seen
    QTest::keyClicks(&m_list, QStringLiteral("row 57"));
    EXPECT_EQ(m_list.selectedRow(), 57);

    const int before = position();
    const QPoint at = middleOf(1);
    QWheelEvent wheel(at, m_list.viewport()->mapToGlobal(at), {}, QPoint(0, 120), {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(m_list.viewport(), &wheel);
    EXPECT_LT(position(), before);
    EXPECT_EQ(m_clicks.size(), 2);
}

// A quick second click belongs to the row that the first was for.
TEST_F(FlickListTest, ADoubleClickIsNotMeantForRowsThatHaveJustCome)
{
    for (const bool refills : {false, true}) {
        fill(10);
        m_clicks.clear();
        const auto refilling =
            QObject::connect(&m_list, &FlickList::clicked, &m_list, [&] { refills ? fill(10) : void(); });
        QWindow *window = m_list.windowHandle();
        static int time = 100000;
        time += 10000;
        for (int i = 0; i < 2; ++i, time += 50) {
            qt_handleMouseEvent(window, middleOf(3), middleOf(3), Qt::LeftButton, Qt::LeftButton,
                                QEvent::MouseButtonPress, Qt::NoModifier, time);
            qt_handleMouseEvent(window, middleOf(3), middleOf(3), Qt::NoButton, Qt::LeftButton,
                                QEvent::MouseButtonRelease, Qt::NoModifier, time + 10);
            QApplication::processEvents();
        }
        EXPECT_EQ(m_clicks.size(), refills ? 1 : 2);
        EXPECT_EQ(m_list.selectedRow(), refills ? -1 : 3);
        QObject::disconnect(refilling);
    }
}

TEST_F(FlickListTest, StylesAndPaintsOnlyRowsThatAreSeen)
{
    fill(100000);
    QTest::qWait(0);
    m_list.viewport()->repaint();
    EXPECT_TRUE(m_log.contains(QStringLiteral("painted 9")));
    EXPECT_FALSE(m_log.contains(QStringLiteral("styled 12")));
    m_log.clear();
    m_list.scrollToRow(50000);
    m_list.viewport()->repaint();
    EXPECT_EQ(m_log.filter(QStringLiteral("styled")).size(), 10);
    EXPECT_TRUE(m_log.contains(QStringLiteral("painted 50000")));
    EXPECT_EQ(m_list.item(99999)->width(), m_list.viewport()->width());
}

TEST_F(FlickListTest, OwnsItsRowsAndFollowsThem)
{
    fill(3);
    QVector<int> selections;
    QObject::connect(&m_list, &FlickList::rowSelected, &m_list, [&](int row) { selections.append(row); });
    m_list.selectRow(1);
    m_list.beginInitialize();
    m_list.selectRow(3);
    m_list.addItem(std::make_unique<Row>(3, QStringLiteral("row 3"), m_log));
    m_list.endInitialize();
    EXPECT_EQ(m_list.selectedItem(), m_list.item(3));
    EXPECT_TRUE(m_list.item(3)->isSelected());
    EXPECT_FALSE(m_list.item(1)->isSelected());

    m_log.clear();
    std::unique_ptr<IFlickListItem> taken = m_list.takeItem(3);
    EXPECT_EQ(m_log, QStringList());
    EXPECT_FALSE(taken->isSelected());
    EXPECT_EQ(m_list.takeItem(3), nullptr);
    m_list.insertItem(0, std::move(taken));
    EXPECT_EQ(m_list.item(0)->text(), QStringLiteral("row 3"));

    m_list.selectRow(1);
    m_list.takeItem(1);
    EXPECT_EQ(m_list.selectedRow(), 1); // the next one
    m_list.selectRow(7);
    EXPECT_EQ(m_list.selectedItem(), nullptr);
    EXPECT_EQ(selections, QVector<int>({1, -1, 3, 2, 1, 1, -1}));
    static_cast<Row *>(m_list.item(0))->setHeight(100);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return m_list.visualRect(m_list.model()->index(1, 0)).top() == 100; }));
    m_list.clear();
    EXPECT_EQ(m_log.count(QStringLiteral("gone")), 4);
}
