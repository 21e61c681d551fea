#pragma once

#include <QtCore/QObject>

class QWidget;
class ScriptEngine;

/// Answers every modal dialog when nobody is there to do it, so that a run never hangs.
///
/// Message boxes are told on standard error as "[title] text" and closed; other dialogs as
/// "[cancelled] title, opened by file:line" and cancelled.
class UnattendedDialogs : public QObject
{
    Q_OBJECT

public:
    /// Watches the whole application. @p engine tells who opened a dialog.
    explicit UnattendedDialogs(const ScriptEngine &engine);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void answer(QWidget *dialog) const;

    const ScriptEngine &m_engine;
};
