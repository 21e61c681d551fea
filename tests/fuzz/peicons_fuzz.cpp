#include "fuzz/target.h"

#include <platform/desktop/icons/iconfile.h>
#include <platform/desktop/icons/iconimage.h>

#include <QtCore/QBuffer>
#include <algorithm>

using namespace platform;

void tryInput(const QByteArray &content)
{
    constexpr int mostImages = 16; // for speed
    QBuffer buffer;
    buffer.setData(content);
    require(buffer.open(QIODevice::ReadOnly), "bytes can be read");
    const IconFile file(buffer);
    for (const int index : {0, 1, 2, 3, -1, -7}) {
        const QVector<IconImage> images = file.icon(index);
        require(images.size() <= content.size(), "a picture is declared somewhere in the file");
        for (int i = 0; i < std::min(images.size(), mostImages); ++i) {
            const QByteArray encoded = file.encoded(images.at(i));
            require(encoded.size() <= content.size(), "a picture is in the file");
            const QImage image = decodeIconImage(encoded);
            require(image.isNull() || image.format() == QImage::Format_ARGB32, "pixels are as promised");
            require(image.width() <= 1024 && image.height() <= 1024, "no picture is too large");
        }
    }
}
