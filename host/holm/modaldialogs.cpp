#include "modaldialogs.h"

#include "scriptengine.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>

#include <iostream>

namespace {

// Input dialogs may have an empty title; their prompt names them then.
QString titleOf(const QWidget *dialog)
{
    const auto *prompt = dialog->findChild<QLabel *>();
    return dialog->windowTitle().isEmpty() && prompt ? prompt->text() : dialog->windowTitle();
}

} // namespace

bool ModalDialog::tellMessage() const
{
    const auto *box = qobject_cast<const QMessageBox *>(window.data());
    if (!box)
        return false;
    std::cerr << '[' << box->windowTitle().toStdString() << "] " << box->text().toStdString() << std::endl;
    return true;
}

void ModalDialog::tellCancelled() const
{
    if (window)
        std::cerr << "[cancelled] " << titleOf(window).toStdString() << ", opened by " << opener.toStdString()
                  << std::endl;
}

void ModalDialog::cancel() const
{
    if (auto *dialog = qobject_cast<QDialog *>(window.data()))
        dialog->reject();
    else if (window)
        window->close();
}

ModalDialogs::ModalDialogs(const ScriptEngine &engine)
    : m_engine(engine)
{
    qApp->installEventFilter(this);
}

bool ModalDialogs::eventFilter(QObject *watched, QEvent *event)
{
    const bool isShow = event->type() == QEvent::Show;
    if ((!isShow && event->type() != QEvent::Hide) || event->spontaneous())
        return false;
    auto *window = qobject_cast<QWidget *>(watched);
    if (!window || !window->isWindow())
        return false;
    if (!isShow)
        emit closed(window);
    else if (window->isModal())
        emit opened({window, m_engine.position()});
    return false;
}
