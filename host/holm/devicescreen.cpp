#include "devicescreen.h"

#include <QtCore/QEvent>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QWidget>

namespace {
constexpr QSize handheld(240, 320);
constexpr Qt::WindowStates filling = Qt::WindowMaximized | Qt::WindowFullScreen;
} // namespace

DeviceScreen::DeviceScreen(bool vga, const QWidget *widget)
    : m_size(vga ? handheld * 2 : handheld)
    , m_widget(widget)
{
    qApp->installEventFilter(this);
}

bool DeviceScreen::eventFilter(QObject *watched, QEvent *event)
{
    auto *window = watched->isWidgetType() ? static_cast<QWidget *>(watched) : nullptr;
    if (!window || window == m_widget || !window->isWindow())
        return false;
    // Sent when the state is set, thus before such a window is seen at all.
    if (event->type() == QEvent::WindowStateChange && window->isHidden()
        && (window->windowState() & filling)) {
        fill(window);
        place(window);
        block(window);
    } else if (event->type() == QEvent::Show && !event->spontaneous() && window->isModal()) {
        if (auto *dialog = qobject_cast<QInputDialog *>(window))
            narrow(*dialog);
        place(window);
    }
    return false;
}

void DeviceScreen::fill(QWidget *window) const
{
    window->setWindowState(window->windowState() & ~filling);
    // Otherwise what is in it could make it larger than the screen.
    window->setMinimumSize(m_size);
    window->resize(m_size);
}

// A window that is modal for its parent only, and has none, would leave the widget behind it open to clicks,
// which on a handheld it covers.
void DeviceScreen::block(QWidget *window) const
{
    if (!m_widget || !m_widget->windowHandle() || window->windowModality() != Qt::WindowModal
        || window->parentWidget())
        return;
    window->winId(); // makes the native window
    window->windowHandle()->setTransientParent(m_widget->windowHandle());
}

// Qt's input dialogs are as wide as what they ask, so that the buttons of some would be out of reach.
void DeviceScreen::narrow(QInputDialog &dialog) const
{
    if (dialog.width() <= m_size.width())
        return;
    const QMargins margins = dialog.layout() ? dialog.layout()->contentsMargins() : QMargins();
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    for (QLabel *label : labels) {
        label->setWordWrap(true);
        label->setMaximumWidth(m_size.width() - margins.left() - margins.right());
    }
    dialog.adjustSize();
}

void DeviceScreen::place(QWidget *window) const
{
    if (!m_widget || !m_widget->isVisible())
        return;
    const QRect desktop = m_widget->screen()->availableGeometry();
    QRect place(QPoint(), window->size());
    place.moveCenter(m_widget->geometry().center());
    place.moveLeft(qMax(desktop.left(), qMin(place.left(), desktop.right() + 1 - place.width())));
    place.moveTop(qMax(desktop.top(), qMin(place.top(), desktop.bottom() + 1 - place.height())));
    window->setGeometry(place);
}
