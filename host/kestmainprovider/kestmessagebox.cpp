#include "kestmessagebox.h"

void KestMessageBox::information(QWidget *parent, const QString &title, const QString &text)
{
    KestMessageBox box(Information, title, text, Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}
