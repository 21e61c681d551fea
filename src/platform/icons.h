#pragma once

#include "platform/picture.h"

#include <memory>
#include <string>

namespace platform {

/// An icon that the system has handed out, and that goes back to it at the end (DestroyIcon).
class Icon
{
public:
    virtual ~Icon() = default;

    /// The icon's colours and, as alpha values, its mask. Empty if the system cannot tell them.
    virtual Picture picture() = 0;
};

/// What was found in a file. Either size may be missing, even both.
struct ExtractedIcons
{
    unsigned count = 0; ///< 0: there is no such icon
    std::unique_ptr<Icon> large;
    std::unique_ptr<Icon> small;
};

/// The icons inside files. GUI thread only.
class Icons
{
public:
    virtual ~Icons() = default;

    /// Takes an icon out of a program, library or icon file (ExtractIconExW, for one icon in both sizes).
    ///
    /// @p file is an absolute path as Shell::localPath() takes it. @p index counts a program's icons from 0;
    /// a negative one names the icon with that number, made positive, as its resource identifier (but -1
    /// finds nothing where the system answers it with the number of icons). An icon file holds one icon: 0
    /// and every negative index give it. The large icon is the one nearest to 32x32 pixels, the small one the
    /// nearest to 16x16. Nothing is found in a file that is missing, of another kind or damaged.
    virtual ExtractedIcons extract(const std::u16string &file, int index) = 0;

    /// The screen's horizontal density in dots per inch (GetDeviceCaps, LOGPIXELSX).
    virtual int screenDensity() = 0;
};

} // namespace platform
