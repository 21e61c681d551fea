#include "platform/desktop/icons/iconfile.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int headerSize = 6;
constexpr int entrySize = 16;
constexpr int groupEntrySize = 14;

/// How many pictures an icon has; 0 if this is another kind of directory.
int imageCount(const QByteArray &directory)
{
    constexpr quint16 iconKind = 1;
    if (directory.size() < headerSize || numberAt<quint16>(directory, 0) != 0
        || numberAt<quint16>(directory, 2) != iconKind)
        return 0;
    return numberAt<quint16>(directory, 4);
}

/// A byte of a directory, where 0 means 256.
int side(const QByteArray &directory, int offset)
{
    const auto value = numberAt<quint8>(directory, offset);
    return value == 0 ? 256 : value;
}

IconImage imageAt(const QByteArray &directory, int offset)
{
    IconImage image;
    image.width = side(directory, offset);
    image.height = side(directory, offset + 1);
    image.bitCount = numberAt<quint16>(directory, offset + 6);
    image.size = numberAt<quint32>(directory, offset + 8);
    return image;
}

QVector<IconImage> imagesOfGroup(const QByteArray &group)
{
    QVector<IconImage> images;
    const int count = imageCount(group);
    for (int i = 0; i < count && headerSize + (i + 1) * groupEntrySize <= group.size(); ++i) {
        const int offset = headerSize + i * groupEntrySize;
        images.append(imageAt(group, offset));
        images.last().place = numberAt<quint16>(group, offset + 12);
    }
    return images;
}

QVector<IconImage> imagesOfFile(const ByteReader &file)
{
    const int count = imageCount(file.read(0, headerSize));
    const QByteArray entries = file.read(headerSize, static_cast<quint64>(count) * entrySize);
    QVector<IconImage> images;
    for (int offset = 0; offset < entries.size(); offset += entrySize) {
        images.append(imageAt(entries, offset));
        images.last().place = numberAt<quint32>(entries, offset + 12);
    }
    return images;
}

} // namespace

IconFile::IconFile(QIODevice &device)
    : m_file(device)
{
    if (ProgramResources::isProgram(m_file))
        m_resources.emplace(m_file);
}

QVector<IconImage> IconFile::icon(int index) const
{
    if (m_resources)
        return imagesOfGroup(m_resources->iconGroup(index));
    return index <= 0 ? imagesOfFile(m_file) : QVector<IconImage>();
}

QByteArray IconFile::encoded(const IconImage &image) const
{
    return m_resources ? m_resources->icon(image.place) : m_file.read(image.place, image.size);
}

} // namespace platform
