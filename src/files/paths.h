#pragma once

#include <QtCore/QString>

/// Whether a script means @p path as absolute: it begins with a slash or a backslash.
bool isAbsolutePath(const QString &path);

/// The path of the file that a script means by @p path: where the device has it if it is absolute, else
/// below the application directory.
QString resolvedPath(const QString &path);
