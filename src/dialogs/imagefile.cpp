#include "dialogs/imagefile.h"

#include <QtCore/QBuffer>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtGui/QImageReader>

QImage readImage(QIODevice &device)
{
    constexpr qint64 most = 64000000;
    QImageReader reader(&device);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    const bool isTooLarge = qint64(size.width()) * size.height() > most;
    return isTooLarge ? QImage() : reader.read();
}

QImage scaledTo(const QImage &image, int width, int height)
{
    constexpr int longest = 8192;
    if (image.isNull() || qMin(width, height) < 1 || qMax(width, height) > longest)
        return QImage();
    return image.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool saveImage(const QImage &image, const QString &path, int quality)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, QFileInfo(path).suffix().toLatin1().constData(), quality))
        return false;
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(buffer.data()) == buffer.size() && file.commit();
}
