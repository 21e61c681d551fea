#include "dialogs/kestlineedit.h"

#include "orvanecore/iapplication.h"
#include "provider/kestcommandprovider.h"

void KestLineEdit::focusInEvent(QFocusEvent *event)
{
    KestCommandProvider::instance()->application()->setNativeDialogOpen(true);
    QLineEdit::focusInEvent(event);
}

void KestLineEdit::focusOutEvent(QFocusEvent *event)
{
    KestCommandProvider::instance()->application()->setNativeDialogOpen(false);
    QLineEdit::focusOutEvent(event);
}
