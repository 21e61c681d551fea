#pragma once

#include <QtCore/QString>

/// The Programs menu and its two process-wide caches. GUI thread only.
class ProgramsMenu
{
public:
    /// Whether folder listings are cached.
    static bool useCache;
    /// Whether icons are cached.
    static bool useIconsCache;

    /// Reads the listings of @p folder into the cache, unless they are there already.
    static void buildCaches(const QString &folder);

    /// Forgets the listings of @p folder, or of all folders if it is empty.
    static void purgeCaches(const QString &folder);

    /// Forgets all icons.
    static void purgeIconsCache();
};
