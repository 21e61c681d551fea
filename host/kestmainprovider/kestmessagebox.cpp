#include "kestmessagebox.h"

KestMessageBox::KestMessageBox(const QString &title, const QString &text, QWidget *parent)
    : QMessageBox(Information, title, text, Ok, parent)
{
    setTextFormat(Qt::PlainText);
}

void KestMessageBox::information(QWidget *parent, const QString &title, const QString &text)
{
    KestMessageBox(title, text, parent).exec();
}
