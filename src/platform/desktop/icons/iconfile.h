#pragma once

#include "platform/desktop/icons/programresources.h"

#include <optional>

namespace platform {

/// One picture of an icon, as the icon's directory declares it; the picture itself may differ.
struct IconImage
{
    int width = 0; ///< in pixels, 1 to 256, as is the height
    int height = 0;
    int bitCount = 0; ///< for the colour of a pixel
    quint32 size = 0; ///< in bytes
    quint32 place = 0; ///< an offset in an icon file, an identifier in a program
};

/// The icons in a program, a library or an icon file, which its content tells. Damaged parts are missing.
class IconFile
{
public:
    /// @p device is open, allows random access and outlives this.
    explicit IconFile(QIODevice &device);

    /// The pictures of an icon; empty if there is no such icon. Of a program, @p index counts the icons from
    /// 0, or is an identifier, made negative. The icon of an icon file is found by 0 and by any negative
    /// number.
    QVector<IconImage> icon(int index) const;

    /// The picture as it stands in the file, a bitmap or PNG; empty if it is missing.
    QByteArray encoded(const IconImage &image) const;

private:
    const ByteReader m_file;
    std::optional<ProgramResources> m_resources; ///< unless it is an icon file
};

} // namespace platform
