#include "dialogs/customimage.h"

#include "dialogs/dialogowner.h"
#include "dialogs/fileselector.h"
#include "dialogs/imagefile.h"
#include "kestmainprovider/kestmessagebox.h"
#include "orvanecore/iapplication.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

QImage askForCustomImage(const IApplication &application)
{
    const QString question =
        QCoreApplication::translate("KestCommandProvider", "Do you want to select a custom Image?");
    if (!KestMessageBox::question(nullptr, QString(), question))
        return QImage();

    const DialogOwner<FileSelector> selector;
    selector->show(application.applicationPath(), true, QStringLiteral("*.jpg;*.png;*.bmp"), false, false,
                   QString());
    QFile file(selector.get() ? selector->result() : QString());
    return !file.fileName().isEmpty() && file.open(QIODevice::ReadOnly) ? readImage(file) : QImage();
}
