#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

class ScriptEngine;

/// A modal window that has opened.
struct ModalDialog
{
    QPointer<QWidget> window;
    QString opener; ///< "file:line" of the script code that runs meanwhile; empty if none does

    /// Tells a message box on standard error as "[title] text". Returns false if it is none.
    bool tellMessage() const;

    /// Tells on standard error "[cancelled] title, opened by file:line".
    void tellCancelled() const;

    /// Closes the dialog, if it is still there, as a user does who wants nothing of it.
    void cancel() const;
};

/// Notices every modal window of the application, for those who answer dialogs in a user's place.
class ModalDialogs : public QObject
{
    Q_OBJECT

public:
    /// Watches the whole application. @p engine tells who opened a dialog, and must outlive this.
    explicit ModalDialogs(const ScriptEngine &engine);

signals:
    /// The dialog is being shown; its event loop runs only after that.
    void opened(const ModalDialog &dialog);

    /// The dialog has been hidden, or is being destroyed.
    void closed(QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const ScriptEngine &m_engine;
};
