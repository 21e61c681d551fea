#include "platform/desktop/icons/iconbitmap.h"

#include "platform/desktop/icons/bytereader.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <algorithm>
#include <optional>

namespace platform {

namespace {

constexpr int infoHeaderSize = 40;
constexpr int bitsOfAlphaFormat = 32;
constexpr int bitsOfFiveBitColours = 16;
/// Of red, green and blue. Qt's reader leaves them empty in five-bit colours, so that white would be grey.
constexpr QRgb lowestThreeBits = 0x070707;

bool isSide(qint64 pixels)
{
    return pixels >= 1 && pixels <= mostIconPixels;
}

/// The length of a bitmap's row, in bytes.
int rowSize(int width, int bitCount)
{
    return (width * bitCount + 31) / 32 * 4;
}

/// A bitmap's measures and where its parts stand: colour table, pixels, mask. Rows go from the bottom to the
/// top.
struct BitmapLayout
{
    int width;
    int height;
    int bitCount;
    int colourCount;
    int colours;
    int pixels;
    int mask;

    int maskEnd() const { return mask + height * rowSize(width, 1); }
};

std::optional<BitmapLayout> layoutOf(const QByteArray &bitmap)
{
    if (bitmap.size() < infoHeaderSize)
        return std::nullopt;
    const auto headerSize = numberAt<quint32>(bitmap, 0);
    const qint64 width = numberAt<qint32>(bitmap, 4);
    const qint64 height = numberAt<qint32>(bitmap, 8) / 2; // the mask's is counted too
    const int bitCount = numberAt<quint16>(bitmap, 14);
    const quint32 mostColours = bitCount <= 8 ? 1U << bitCount : 256;
    const auto compression = numberAt<quint32>(bitmap, 16);
    const auto coloursUsed = numberAt<quint32>(bitmap, 32);
    constexpr int bitCounts[] = {1, 4, 8, 16, 24, 32};
    if (headerSize < infoHeaderSize || headerSize > static_cast<quint32>(bitmap.size()) || !isSide(width)
        || !isSide(height) || compression != 0 || coloursUsed > mostColours
        || std::find(std::begin(bitCounts), std::end(bitCounts), bitCount) == std::end(bitCounts))
        return std::nullopt;

    BitmapLayout layout = {};
    layout.width = static_cast<int>(width);
    layout.height = static_cast<int>(height);
    layout.bitCount = bitCount;
    layout.colourCount = static_cast<int>(coloursUsed);
    if (bitCount <= 8 && coloursUsed == 0)
        layout.colourCount = 1 << bitCount;
    layout.colours = static_cast<int>(headerSize);
    layout.pixels = layout.colours + layout.colourCount * 4;
    layout.mask = layout.pixels + layout.height * rowSize(layout.width, bitCount);
    if (layout.mask > bitmap.size())
        return std::nullopt;
    return layout;
}

/// Gives each pixel what @p change makes of its row, counted from the bottom, its column and its value.
template <typename Change>
void changePixels(QImage &image, Change change)
{
    for (int y = 0; y < image.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = change(image.height() - 1 - y, x, row[x]);
    }
}

QRgb withAlpha(QRgb pixel, quint8 alpha)
{
    return qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), alpha);
}

/// Without transparency. The colours are those of the bitmap to the last bit, which Qt's reader of icon
/// files, with its multiplied colours, would not keep.
QImage coloursOf(const QByteArray &bitmap, const BitmapLayout &layout)
{
    constexpr int fileHeaderSize = 14;
    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    const auto start = static_cast<quint32>(fileHeaderSize + infoHeaderSize + layout.pixels - layout.colours);
    const quint32 none = 0;
    stream << quint8('B') << quint8('M') << none << none << start;
    stream << quint32(infoHeaderSize) << qint32(layout.width) << qint32(layout.height) << quint16(1)
           << quint16(layout.bitCount) << none << none << none << none << quint32(layout.colourCount) << none;
    file += bitmap.mid(layout.colours, layout.mask - layout.colours);
    QImage image = QImage::fromData(file, "BMP").convertToFormat(QImage::Format_ARGB32);
    if (layout.bitCount == bitsOfFiveBitColours)
        changePixels(image, [](int, int, QRgb pixel) { return pixel | (pixel >> 5 & lowestThreeBits); });
    return image;
}

bool hasAlpha(const QByteArray &bitmap, const BitmapLayout &layout)
{
    if (layout.bitCount != bitsOfAlphaFormat)
        return false;
    for (int at = layout.pixels; at < layout.mask; at += 4) {
        if (bitmap.at(at + 3) != 0)
            return true;
    }
    return false;
}

} // namespace

QImage decodeIconBitmap(const QByteArray &bitmap)
{
    const auto layout = layoutOf(bitmap);
    if (!layout)
        return QImage();
    QImage image = coloursOf(bitmap, *layout);
    if (hasAlpha(bitmap, *layout)) { // then nobody looks at the mask, and some programs leave it out
        changePixels(image, [&](int row, int x, QRgb pixel) {
            const int at = layout->pixels + (row * layout->width + x) * 4;
            return withAlpha(pixel, numberAt<quint8>(bitmap, at + 3));
        });
    } else {
        if (layout->maskEnd() > bitmap.size())
            return QImage();
        changePixels(image, [&](int row, int x, QRgb pixel) {
            const int at = layout->mask + row * rowSize(layout->width, 1) + x / 8;
            return withAlpha(pixel, numberAt<quint8>(bitmap, at) & 0x80 >> x % 8 ? 0 : 0xff);
        });
    }
    return image;
}

} // namespace platform
