#pragma once

#include <cstdint>
#include <vector>

namespace platform {

/// A picture as plain pixels.
struct Picture
{
    int width = 0; ///< in pixels, as is the height; both are 0 if there is no picture
    int height = 0;
    /// 0xAARRGGBB, the colours not multiplied by the alpha value; row by row from the top, width * height.
    std::vector<std::uint32_t> pixels;
};

} // namespace platform
