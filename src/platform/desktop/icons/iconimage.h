#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace platform {

/// Draws one picture of an icon: a bitmap without compression and its mask, or PNG; of at most 1024x1024
/// pixels. The format is ARGB32. Null if the picture is damaged or of another kind.
QImage decodeIconImage(const QByteArray &encoded);

} // namespace platform
