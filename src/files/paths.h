#pragma once

#include <QtCore/QString>

/// Whether a script means @p path as absolute: it begins with a slash or a backslash.
bool isAbsolutePath(const QString &path);

/// The path of the file that a script means by @p path: below the application directory unless it is
/// absolute; an absolute one is where the device has it.
QString resolvedPath(const QString &path);
