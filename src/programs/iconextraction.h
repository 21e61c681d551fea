#pragma once

#include "platform/picture.h"

#include <QtGui/QPixmap>

// Icons out of programs, shortcuts and libraries. GUI thread only.

/// What a shortcut is read for.
enum class ShortcutUse {
    Program, ///< its own icon; one at index 0 counts only in a file whose name ends with ".exe"
    FolderIcon, ///< the icon of the folder that it stands in, which may come from any file
};

/// The icon that the shell shows for a file, or a null picture if there is none.
///
/// @p path begins with a slash or a backslash; any other is taken below the application directory if it names
/// a shortcut, and else below the Windows folder. Of the icon's two sizes it is the large one if @p large is
/// true and there is one, else the small one. @p width and @p height, in pixels up to 8192, scale it
/// regardless of its shape; 0 keeps a side as it is.
QPixmap extractIconPixmap(const QString &path, bool large, int width, int height,
                          ShortcutUse use = ShortcutUse::Program);

/// Writes the icon of @p source to @p destination, in the format that its ending names. @p quality is 0 to
/// 100, for formats that have one. False, and nothing is written, if there is no icon or the file cannot be
/// written.
bool saveIconToFile(const QString &source, const QString &destination, bool large, int width, int height,
                    int quality);

/// A picture of the platform's, with its transparency.
QImage toImage(const platform::Picture &picture);

/// Whether a file's name ends so, in upper or lower case as on the device.
bool hasEnding(const QString &path, QLatin1String ending);
