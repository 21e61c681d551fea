// windowopener KIND TITLE [KIND TITLE...]
//
// Opens windows, each red with a blue edge one pixel wide, and prints what happens to them: "active TITLE"
// and "closed TITLE". Of the kinds, "window" is nothing special, "minimized" is minimised, "dialog" belongs
// to the window before it, "dock" is a panel, "beyond" reaches beyond the screen, and "huge" is 9000 pixels
// wide.

#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <iostream>

namespace {

class Window : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::blue);
        painter.fillRect(rect().adjusted(1, 1, -1, -1), Qt::red);
    }

    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::ActivationChange && isActiveWindow())
            tell("active ");
    }

    void closeEvent(QCloseEvent *) override { tell("closed "); }

private:
    void tell(const char *event) const { std::cout << event << windowTitle().toStdString() << std::endl; }
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    Window *before = nullptr;
    for (int i = 1; i + 1 < arguments.size(); i += 2) {
        const QString &kind = arguments.at(i);
        const bool isDialog = kind == QLatin1String("dialog");
        auto *const window = new Window(isDialog ? before : nullptr, isDialog ? Qt::Dialog : Qt::Window);
        before = window;
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setAttribute(Qt::WA_X11NetWmWindowTypeDock, kind == QLatin1String("dock"));
        window->setWindowTitle(arguments.at(i + 1));
        // Window managers take long to find free places.
        window->move(100 + 5 * i, 100);
        window->resize(91, 61);
        if (kind == QLatin1String("beyond"))
            window->resize(window->screen()->size().width() + 300, 61);
        if (kind == QLatin1String("huge"))
            window->resize(9000, 61);
        kind == QLatin1String("minimized") ? window->showMinimized() : window->show();
    }
    return QApplication::exec();
}
