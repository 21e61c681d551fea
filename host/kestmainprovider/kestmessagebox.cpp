#include "kestmessagebox.h"

KestMessageBox::KestMessageBox(Icon icon, const QString &title, const QString &text, StandardButtons buttons,
                               QWidget *parent)
    : QMessageBox(icon, title, text, buttons, parent)
{
    setTextFormat(Qt::PlainText);
}

void KestMessageBox::information(QWidget *parent, const QString &title, const QString &text)
{
    KestMessageBox(Information, title, text, Ok, parent).exec();
}

bool KestMessageBox::question(QWidget *parent, const QString &title, const QString &text)
{
    return KestMessageBox(Question, title, text, Yes | No, parent).exec() == Yes;
}
