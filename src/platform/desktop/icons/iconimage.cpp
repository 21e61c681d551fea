#include "platform/desktop/icons/iconimage.h"

#include "platform/desktop/icons/iconbitmap.h"

#include <QtCore/QList>
#include <QtCore/QtEndian>

namespace platform {

namespace {

const char pngSignature[] = "\x89PNG\r\n\x1a\n";

/// Around a chunk's data: its length, its type and its check sum.
constexpr int chunkFrame = 12;
constexpr int chunkData = 8;

/// Pictures have one for some kilobytes of pixels.
constexpr int mostChunks = 4096;

/// Only the chunks that the pixels are made of, none but those with pixels twice: others, such as packed
/// texts, could fill the memory or change the colours, and many empty ones take long. Empty if the picture is
/// damaged.
QByteArray pixelChunks(const QByteArray &png)
{
    QList<QByteArray> wanted = {"IHDR", "PLTE", "tRNS", "IDAT", "IEND"};
    QByteArray result(pngSignature);
    int at = result.size();
    for (int count = 0; png.size() - at >= chunkFrame && wanted.contains("IEND"); ++count) {
        const auto length = qFromBigEndian<quint32>(png.constData() + at);
        if (length > static_cast<quint32>(png.size() - at - chunkFrame) || count == mostChunks)
            return QByteArray();
        const QByteArray chunk = png.mid(at, static_cast<int>(length) + chunkFrame);
        const QByteArray type = chunk.mid(4, 4);
        if (type == "IDAT" ? length > 0 : wanted.removeOne(type))
            result += chunk;
        at += chunk.size();
    }
    return result;
}

/// By what its header, which has to come first, declares.
bool isTooLarge(const QByteArray &chunks)
{
    const int sides = static_cast<int>(sizeof(pngSignature)) - 1 + chunkData;
    return chunks.size() < sides + 8 || qFromBigEndian<quint32>(chunks.constData() + sides) > mostIconPixels
        || qFromBigEndian<quint32>(chunks.constData() + sides + 4) > mostIconPixels;
}

QImage decodePng(const QByteArray &png)
{
    const QByteArray chunks = pixelChunks(png);
    return isTooLarge(chunks) ? QImage()
                              : QImage::fromData(chunks, "PNG").convertToFormat(QImage::Format_ARGB32);
}

} // namespace

QImage decodeIconImage(const QByteArray &encoded)
{
    return encoded.startsWith(pngSignature) ? decodePng(encoded) : decodeIconBitmap(encoded);
}

} // namespace platform
