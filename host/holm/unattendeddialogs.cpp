#include "unattendeddialogs.h"

#include "modaldialogs.h"

UnattendedDialogs::UnattendedDialogs(const ModalDialogs &dialogs, Closing closing)
{
    connect(&dialogs, &ModalDialogs::opened, this, [closing](const ModalDialog &dialog) {
        if (closing == Closing::Own)
            answer(dialog);
        else
            dialog.tellMessage();
    });
}

void UnattendedDialogs::answer(const ModalDialog &dialog)
{
    if (!dialog.tellMessage())
        dialog.tellCancelled();
    // Queued: the dialog is being shown, and its event loop runs only after that.
    QMetaObject::invokeMethod(
        dialog.window, [dialog] { dialog.cancel(); }, Qt::QueuedConnection);
}
