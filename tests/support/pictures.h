#pragma once

#include <QtCore/QBuffer>
#include <QtGui/QImage>

/// A file with a picture of one colour.
inline QByteArray pictureFile(const QColor &colour, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// A picture's size and its first pixel, as "30x40 #ffff0000", or an empty text if it is null.
inline QString description(const QImage &image)
{
    return image.isNull() ? QString()
                          : QStringLiteral("%1x%2 %3")
                                .arg(image.width())
                                .arg(image.height())
                                .arg(image.pixelColor(0, 0).name(QColor::HexArgb));
}
