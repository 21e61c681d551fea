#pragma once

#include "platform/picture.h"

#include <QtGui/QImage>

namespace platform {

/// The pixels of an image of Qt's. Of a format without alpha values they are opaque.
inline Picture toPicture(const QImage &source)
{
    const QImage image = source.convertToFormat(QImage::Format_ARGB32);
    Picture picture{image.width(), image.height(), {}};
    picture.pixels.reserve(static_cast<std::size_t>(image.sizeInBytes()) / sizeof(QRgb));
    for (int y = 0; y < image.height(); ++y) {
        const auto *const row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        picture.pixels.insert(picture.pixels.end(), row, row + image.width());
    }
    return picture;
}

} // namespace platform
