#pragma once

#include <QtCore/QString>

/// Whether a script means @p path as absolute: it begins with a slash or a backslash.
bool isAbsolutePath(const QString &path);
