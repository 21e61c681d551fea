#pragma once

#include "kestmainprovider_global.h"

#include <QtWidgets/QMessageBox>

/// The message boxes of the host: plain text, one look for all providers. GUI thread only.
class KESTMAINPROVIDER_EXPORT KestMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    /// Shows @p text, never read as markup, with an OK button; returns when the user has closed it.
    /// @p parent may be null.
    static void information(QWidget *parent, const QString &title, const QString &text);

    /// Asks a question with the buttons Yes and No, in that order; returns whether the answer was Yes.
    static bool question(QWidget *parent, const QString &title, const QString &text);

private:
    KestMessageBox(Icon icon, const QString &title, const QString &text, StandardButtons buttons,
                   QWidget *parent);
};
