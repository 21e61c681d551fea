#pragma once

#include <QtCore/QObject>
#include <QtCore/QSize>

class QInputDialog;
class QWidget;

/// Gives windows that show themselves maximised, as providers' dialogs do, the handheld's screen to fill
/// and not that of the desktop. Input dialogs become no wider than that screen. All open over the widget.
class DeviceScreen : public QObject
{
    Q_OBJECT

public:
    /// Watches the whole application, except for the widget's own window @p widget, over which it puts the
    /// others while it is visible. It may be null, and else must outlive this.
    DeviceScreen(bool vga, const QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill(QWidget *window) const;
    void block(QWidget *window) const;
    void narrow(QInputDialog &dialog) const;
    void place(QWidget *window) const;

    const QSize m_size;
    const QWidget *m_widget;
};
