#include "unattendeddialogs.h"

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

UnattendedDialogs::UnattendedDialogs(const ScriptEngine &engine)
    : m_engine(engine)
{
    qApp->installEventFilter(this);
}

bool UnattendedDialogs::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = event->type() == QEvent::Show ? qobject_cast<QWidget *>(watched) : nullptr;
    if (dialog && dialog->isWindow() && dialog->isModal())
        answer(dialog);
    return false;
}

void UnattendedDialogs::answer(QWidget *dialog) const
{
    if (const auto *box = qobject_cast<QMessageBox *>(dialog))
        std::cerr << '[' << box->windowTitle().toStdString() << "] " << box->text().toStdString()
                  << std::endl;
    else
        std::cerr << "[cancelled] " << titleOf(dialog).toStdString() << ", opened by "
                  << m_engine.position().toStdString() << std::endl;

    // Queued: the dialog is being shown, and its event loop runs only after that.
    if (auto *standard = qobject_cast<QDialog *>(dialog))
        QMetaObject::invokeMethod(standard, &QDialog::reject, Qt::QueuedConnection);
    else
        QMetaObject::invokeMethod(dialog, &QWidget::close, Qt::QueuedConnection);
}
