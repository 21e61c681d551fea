#pragma once

#include "kestmainprovider_global.h"

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QListView>

#include <memory>

class FlickListModel;
class FlickListStyle;
class IFlickListItem;

/// A kinetic list of rows, for fingers, mouse and keyboard.
///
/// A tap selects a row and clicks it; a longer press, or the right button, only selects it; a drag or flick
/// scrolls, and never clicks. Arrow keys, page, home, end and the first letters of a row select, Enter
/// clicks. Rows are styled and painted when they are first seen. GUI thread only.
class KESTMAINPROVIDER_EXPORT FlickList : public QListView
{
    Q_OBJECT

public:
    explicit FlickList(QWidget *parent = nullptr);
    ~FlickList() override;

    /// Not owned: has to live until the list dies or gets another. Null for the items' own looks.
    void setListStyle(const FlickListStyle *style);

    /// Rows that are added between the two are shown by the second, all at once. The first forgets what is
    /// selected, the second selects the row that selectRow() was told in between. They do not nest.
    void beginInitialize();
    void endInitialize();

    /// Adds a row at the end.
    void addItem(std::unique_ptr<IFlickListItem> item);

    /// Adds a row before @p row, which is 0 to itemCount().
    void insertItem(int row, std::unique_ptr<IFlickListItem> item);

    /// Takes a row out and hands it over. Null if there is no such row.
    std::unique_ptr<IFlickListItem> takeItem(int row);

    /// Destroys all rows.
    void clear();

    int itemCount() const;

    /// Null if there is no such row. The list still owns it.
    IFlickListItem *item(int row) const;

    /// -1 or null if no row is selected.
    int selectedRow() const;
    IFlickListItem *selectedItem() const;

    /// Selects a row and scrolls as far as it takes to see it; -1, or a row that is not there, selects none.
    void selectRow(int row);

    /// Scrolls so that the row is at the top, or as near to it as the end of the list allows. Rows that are
    /// not there are ignored.
    void scrollToRow(int row);

signals:
    /// A row was tapped, or Enter was pressed on it. The item may be destroyed by who is told.
    void clicked(IFlickListItem *item);

    /// Another row is selected now; -1: none.
    void rowSelected(int row);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    class RowDelegate;
    friend class IFlickListItem;

    void scheduleLayout();
    void adopt(IFlickListItem &item);
    void ensureStyled(IFlickListItem &item);
    int heightOf(const IFlickListItem &item) const;
    void click(int row);

    FlickListModel *const m_model;
    const FlickListStyle *m_style = nullptr;
    mutable QHash<const QMetaObject *, QVariant> m_styledHeights; ///< of rows not seen yet, by class
    int m_pressedRow = -1;
    QElapsedTimer m_sincePress;
    bool m_isSameSincePress = false; ///< no row has come or gone
    int m_rowToSelect = -1; ///< while rows are added in bulk
};
