#pragma once

#include <string_view>
#include <vector>

namespace platform {

/// A piece of a date or time picture: a run of one of its letters, or text that stands as it is.
struct PictureToken
{
    char16_t letter = 0; ///< 0: text
    std::u16string_view text; ///< of a run, its letters; refers to the picture
};

/// Takes a picture apart: runs of @p letters, and the rest as text. What stands in single quotes is text,
/// too, where two of them are one quote; a quote that is not closed reaches to the end.
std::vector<PictureToken> readPicture(std::u16string_view picture, std::u16string_view letters);

} // namespace platform
