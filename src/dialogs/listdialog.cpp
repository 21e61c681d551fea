#include "dialogs/listdialog.h"

#include "kestmainprovider/flicklist.h"
#include "kestmainprovider/iflicklistitem.h"
#include "orvanecore/iapplication.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenuBar>

namespace {
// As high as a finger wants it.
const char menuBarLooks[] = "QMenuBar { background-color: #f2f5f9; border-top: 1px solid #b8c4d3;"
                            " spacing: 0; padding: 0; margin: 0; }"
                            "QMenuBar::item { color: #1f2a37; background: transparent; padding: 0.5em; }"
                            "QMenuBar::item:selected { color: white; background-color: #1d63b8; }";

struct LoadedStyle
{
    QDateTime lastModified;
    std::shared_ptr<const FlickListStyle> style;
};

QHash<QString, LoadedStyle> loadedStyles; ///< by their files

std::shared_ptr<const FlickListStyle> styleOf(const QString &file)
{
    const QDateTime lastModified = QFileInfo(file).lastModified();
    LoadedStyle &loaded = loadedStyles[file];
    if (!loaded.style || !lastModified.isValid() || loaded.lastModified != lastModified) {
        auto style = std::make_shared<FlickListStyle>();
        style->load(file);
        loaded = {lastModified, style};
    }
    return loaded.style;
}
} // namespace

ListDialog::ListDialog(QWidget *parent)
    : QWidget(parent, Qt::Dialog)
    , m_loop(std::make_shared<QEventLoop>())
{
}

ListDialog::~ListDialog()
{
    m_loop->exit(0);
}

void ListDialog::forgetStyles()
{
    loadedStyles.clear();
}

void ListDialog::build(const QString &styleName, const QString &cancelText)
{
    m_style = styleOf(FlickListStyle::fileFor(*KestCommandProvider::instance()->application(), styleName));

    m_list = std::make_unique<FlickList>(this);
    m_list->setObjectName(QStringLiteral("list"));
    m_list->setListStyle(m_style.get());
    connect(m_list.get(), &FlickList::clicked, this, &ListDialog::clicked);

    m_menuBar = new QMenuBar(this);
    m_menuBar->setObjectName(QStringLiteral("menuBar"));
    m_menuBar->setNativeMenuBar(false); // it stays at the bottom of the dialog, as on a handheld
    m_menuBar->setStyleSheet(QLatin1String(menuBarLooks));
    QAction *cancel = addAction(QStringLiteral("actionExit"), cancelText);
    // The default action, which on a handheld is the one that has a key.
    cancel->setShortcut(Qt::Key_Escape);
    connect(cancel, &QAction::triggered, this, &QWidget::close);
}

QAction *ListDialog::addAction(const QString &name, const QString &text)
{
    QAction *action = m_menuBar->addAction(text);
    action->setObjectName(name);
    return action;
}

void ListDialog::setListTop(int top)
{
    m_listTop = top;
}

void ListDialog::runModally(QWidget *focused)
{
    const std::shared_ptr<QEventLoop> loop = m_loop;
    showMaximized();
    arrange();
    m_list->scrollToRow(0);
    (focused ? focused : m_list.get())->setFocus();
    loop->exec();
}

FlickList &ListDialog::list()
{
    return *m_list;
}

void ListDialog::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void ListDialog::closeEvent(QCloseEvent *event)
{
    event->accept();
    m_loop->exit(0);
}

void ListDialog::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // Unseen, it could not be closed any more. The window system also hides what it only minimises.
    if (!event->spontaneous())
        m_loop->exit(0);
}

// A handheld's menu bar stands outside of the dialog.
void ListDialog::arrange()
{
    if (!m_list)
        return;
    const int barHeight = m_menuBar->heightForWidth(width());
    m_menuBar->setGeometry(0, height() - barHeight, width(), barHeight);
    m_list->setGeometry(0, m_listTop, width(), height() - barHeight - m_listTop);
}
