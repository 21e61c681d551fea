#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

class QIODevice;

// Pictures in files, of any format that Qt knows. Any thread.

/// Reads a picture. Null if it is none, or has more than 64 million pixels, as a small file may claim.
QImage readImage(QIODevice &device);

/// @p image in another size, smoothly and regardless of its shape. Null if a side is not from 1 to 8192.
QImage scaledTo(const QImage &image, int width, int height);

/// Writes a picture in the format that the ending of @p path names, with a @p quality of 0 to 100 where the
/// format has one; -1 is the format's own. On failure, as for a null picture or an unknown ending, false, and
/// what there was of that name stays.
bool saveImage(const QImage &image, const QString &path, int quality = -1);
