#pragma once

#include <QtCore/QObject>

class ModalDialogs;
struct ModalDialog;

/// Answers every modal dialog when nobody is there to do it, so that a run never hangs.
///
/// Message boxes are told on standard error as "[title] text" and closed; other dialogs as
/// "[cancelled] title, opened by file:line" and cancelled.
class UnattendedDialogs : public QObject
{
    Q_OBJECT

public:
    /// Whose it is to close the dialogs. If another does it, only message boxes are told.
    enum class Closing { Own, Others };

    UnattendedDialogs(const ModalDialogs &dialogs, Closing closing);

private:
    static void answer(const ModalDialog &dialog);
};
