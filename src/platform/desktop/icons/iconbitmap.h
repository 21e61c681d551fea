#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace platform {

/// The largest picture that is taken, in width and in height.
constexpr int mostIconPixels = 1024;

/// Draws a picture that stands in an icon as a bitmap without compression, with its mask. The format is
/// ARGB32. Null if it is damaged or of another kind.
QImage decodeIconBitmap(const QByteArray &bitmap);

} // namespace platform
