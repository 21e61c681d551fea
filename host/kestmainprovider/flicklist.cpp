#include "flicklist.h"

#include "flicklistmodel.h"
#include "flickliststyle.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemDelegate>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>

namespace {

// A press that lasts longer only selects.
constexpr qint64 longestTap = 600; // milliseconds
// Keeps the sum of all heights within an int.
constexpr int highestRow = 1000; // pixels

// Thin, as on a handheld, for it mostly just tells the place.
const char scrollBarLooks[] =
    "QScrollBar:vertical { background-color: #eef2f7; border: none; width: 0.5em; }"
    "QScrollBar::handle:vertical { background-color: #b8c4d3; border-radius: 0.2em; min-height: 1.5em; }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }";

void makeKinetic(QWidget *viewport)
{
    // Qt makes mouse events of touches that nobody takes, so this one gesture serves fingers, too.
    QScroller::grabGesture(viewport, QScroller::LeftMouseButtonGesture);
    QScroller *scroller = QScroller::scroller(viewport);
    QScrollerProperties properties = scroller->scrollerProperties();
    // A tap into a moving list stops it, and is no click however slowly it moves.
    properties.setScrollMetric(QScrollerProperties::MaximumClickThroughVelocity, 0.0);
    properties.setScrollMetric(QScrollerProperties::MousePressEventDelay, 0.1);
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy,
                               QScrollerProperties::OvershootAlwaysOff);
    scroller->setScrollerProperties(properties);
}

} // namespace

class FlickList::RowDelegate : public QAbstractItemDelegate
{
public:
    explicit RowDelegate(FlickList *list)
        : QAbstractItemDelegate(list)
        , m_list(*list)
    {
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        IFlickListItem *item = m_list.item(index.row());
        if (!item)
            return;
        m_list.ensureStyled(*item);
        painter->save();
        painter->setClipRect(option.rect, Qt::IntersectClip);
        painter->translate(option.rect.topLeft());
        item->paint(painter);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const override
    {
        const IFlickListItem *item = m_list.item(index.row());
        // The view makes rows as wide as itself.
        return QSize(0, item ? m_list.heightOf(*item) : 0);
    }

private:
    FlickList &m_list;
};

FlickList::FlickList(QWidget *parent)
    : QListView(parent)
    , m_model(new FlickListModel(this))
{
    setFrameShape(NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setStyleSheet(QLatin1String(scrollBarLooks));
    setEditTriggers(NoEditTriggers);
    setModel(m_model);
    setItemDelegate(new RowDelegate(this));
    makeKinetic(viewport());
}

FlickList::~FlickList() = default;

void FlickList::setListStyle(const FlickListStyle *style)
{
    m_style = style;
    m_styledHeights.clear();
    for (int row = 0; row < itemCount(); ++row)
        item(row)->m_isStyled = false;
    scheduleLayout();
    viewport()->update();
}

void FlickList::beginInitialize()
{
    selectRow(-1);
    m_rowToSelect = -1;
    m_model->beginFilling();
}

void FlickList::endInitialize()
{
    m_model->endFilling();
    selectRow(m_rowToSelect);
}

void FlickList::addItem(std::unique_ptr<IFlickListItem> item)
{
    insertItem(itemCount(), std::move(item));
}

void FlickList::insertItem(int row, std::unique_ptr<IFlickListItem> item)
{
    adopt(*item);
    m_isSameSincePress = false;
    m_model->insert(qBound(0, row, itemCount()), std::move(item));
}

std::unique_ptr<IFlickListItem> FlickList::takeItem(int row)
{
    if (row < 0 || row >= itemCount())
        return nullptr;
    m_isSameSincePress = false;
    const bool hadSelection = selectedRow() >= 0;
    std::unique_ptr<IFlickListItem> item;
    {
        const QSignalBlocker blocker(this); // the view selects the next row while this one is still counted
        item = m_model->take(row);
    }
    item->m_list = nullptr;
    item->m_isSelected = false;
    if (hadSelection)
        emit rowSelected(selectedRow());
    return item;
}

void FlickList::clear()
{
    const bool hadSelection = selectedRow() >= 0;
    m_isSameSincePress = false;
    m_rowToSelect = -1;
    m_model->clear();
    QScroller::scroller(viewport())->stop();
    if (hadSelection)
        emit rowSelected(-1);
}

int FlickList::itemCount() const
{
    return m_model->count();
}

IFlickListItem *FlickList::item(int row) const
{
    return m_model->item(row);
}

int FlickList::selectedRow() const
{
    if (m_model->isFilling())
        return m_rowToSelect;
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

IFlickListItem *FlickList::selectedItem() const
{
    return item(selectedRow());
}

void FlickList::selectRow(int row)
{
    if (m_model->isFilling()) {
        m_rowToSelect = row;
        return;
    }
    const QModelIndex index = m_model->index(row);
    if (!index.isValid())
        clearSelection();
    setCurrentIndex(index);
}

void FlickList::scrollToRow(int row)
{
    const QModelIndex index = m_model->index(row);
    if (!index.isValid())
        return;
    QScroller::scroller(viewport())->stop();
    scrollTo(index, PositionAtTop);
}

void FlickList::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        event->setAccepted(selectedRow() >= 0);
        click(selectedRow());
        break;
    case Qt::Key_Escape:
        event->ignore(); // no text to look for a row with, but a way out of the dialog
        break;
    default:
        QListView::keyPressEvent(event);
    }
}

QItemSelectionModel::SelectionFlags FlickList::selectionCommand(const QModelIndex &index,
                                                                const QEvent *) const
{
    // Whatever keys are held: there is always one row that counts.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

QModelIndex FlickList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Without a current row the view begins with the first, whatever the key.
    if (action == MoveEnd && !currentIndex().isValid())
        return m_model->index(itemCount() - 1);
    return QListView::moveCursor(action, modifiers);
}

void FlickList::mousePressEvent(QMouseEvent *event)
{
    m_pressedRow = indexAt(event->pos()).row();
    m_sincePress.start();
    m_isSameSincePress = true;
    QListView::mousePressEvent(event);
}

void FlickList::mouseMoveEvent(QMouseEvent *)
{
    // The view would select what the mouse is dragged over.
}

void FlickList::mouseReleaseEvent(QMouseEvent *event)
{
    QListView::mouseReleaseEvent(event);
    const int row = std::exchange(m_pressedRow, -1);
    const bool isTap = event->button() == Qt::LeftButton && m_isSameSincePress && m_sincePress.isValid()
        && m_sincePress.elapsed() <= longestTap;
    if (isTap && indexAt(event->pos()).row() == row)
        click(row);
}

void FlickList::mouseDoubleClickEvent(QMouseEvent *event)
{
    // It comes in the place of the second press. Where the first click has opened a folder, the second is not
    // meant for a row in there.
    if (m_isSameSincePress)
        mousePressEvent(event);
}

void FlickList::wheelEvent(QWheelEvent *event)
{
    QScroller::scroller(viewport())->stop();
    QListView::wheelEvent(event);
}

void FlickList::focusInEvent(QFocusEvent *event)
{
    QListView::focusInEvent(event);
    // The view makes the first row the current one, so that the first key press would go past it.
    if (selectedRow() < 0)
        selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
}

void FlickList::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    for (int row = 0; row < itemCount(); ++row)
        item(row)->setWidth(viewport()->width());
}

void FlickList::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    const auto tell = [this](const QItemSelection &selection, bool isSelected) {
        const QModelIndexList indexes = selection.indexes();
        for (const QModelIndex &index : indexes) {
            if (IFlickListItem *row = item(index.row()))
                row->m_isSelected = isSelected;
        }
    };
    tell(deselected, false);
    tell(selected, true);
    QListView::selectionChanged(selected, deselected);
    emit rowSelected(selectedRow());
}

void FlickList::scheduleLayout()
{
    scheduleDelayedItemsLayout();
}

void FlickList::adopt(IFlickListItem &item)
{
    item.m_list = nullptr; // it is laid out as it comes in
    item.setWidth(viewport()->width());
    item.m_list = this;
    item.m_isStyled = false;
}

void FlickList::ensureStyled(IFlickListItem &item)
{
    if (!m_style || item.m_isStyled)
        return;
    const int laidOut = heightOf(item);
    FlickList *const list = std::exchange(item.m_list, nullptr);
    m_style->apply(item);
    item.styled(*m_style);
    item.m_list = list;
    item.m_isStyled = true;
    if (heightOf(item) != laidOut)
        scheduleLayout();
}

int FlickList::heightOf(const IFlickListItem &item) const
{
    qreal height = item.height();
    if (m_style && !item.m_isStyled) {
        auto known = m_styledHeights.constFind(item.metaObject());
        if (known == m_styledHeights.constEnd())
            known = m_styledHeights.insert(item.metaObject(),
                                           m_style->value(*item.metaObject(), QStringLiteral("Height")));
        height = known->isValid() ? known->toReal() : height;
    }
    return static_cast<int>(qBound<qreal>(1, height, highestRow));
}

void FlickList::click(int row)
{
    if (IFlickListItem *clickedItem = item(row))
        emit clicked(clickedItem);
}
