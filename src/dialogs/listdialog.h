#pragma once

#include <kestmainprovider/flickliststyle.h>

#include <QtCore/QEventLoop>
#include <QtWidgets/QWidget>

#include <memory>

class FlickList;
class IFlickListItem;
class QAction;
class QMenuBar;

/// What the full-screen list dialogs have in common: a FlickList in a style of its own, a menu bar below it
/// with the action Cancel and others, and a modal run. A dialog lives for one run. GUI thread only.
class ListDialog : public QWidget
{
    Q_OBJECT

public:
    explicit ListDialog(QWidget *parent);
    ~ListDialog() override;

    /// Styles are read once, and again when their files have changed. This gives them and their pictures
    /// back, which has to happen before the application object goes.
    static void forgetStyles();

protected:
    /// Makes the list and the menu bar. The style is "styles/", @p styleName and ".xml", or ".vga.xml" on a
    /// high-density screen, below the application directory. A click on a row goes to clicked().
    void build(const QString &styleName, const QString &cancelText);

    /// Adds an action to the menu bar.
    QAction *addAction(const QString &name, const QString &text);

    /// Leaves room above the list, in pixels.
    void setListTop(int top);

    /// Shows the dialog, with the focus on the list unless another widget is given, and returns when it has
    /// been closed or destroyed: ask a QPointer which.
    void runModally(QWidget *focused = nullptr);

    /// A row was clicked. Closing the dialog ends its run.
    virtual void clicked(IFlickListItem *item) = 0;

    FlickList &list();

    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void arrange();

    std::shared_ptr<const FlickListStyle> m_style;
    std::unique_ptr<FlickList> m_list; ///< a child, too, but to be destroyed before its style
    int m_listTop = 0;
    QMenuBar *m_menuBar = nullptr;
    std::shared_ptr<QEventLoop> m_loop; ///< shared with the run, which may outlive the dialog
};
