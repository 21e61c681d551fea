#include "platform/windows/windowsicons.h"

#include "platform/windows/pixels.h"
#include "platform/windows/widetext.h"

#include <shellapi.h>

#include <algorithm>
#include <climits>

namespace platform {

namespace {

using UniqueIcon = Unique<HICON, DestroyIcon>;

bool hasAlpha(const Picture &picture)
{
    return std::any_of(picture.pixels.begin(), picture.pixels.end(),
                       [](std::uint32_t pixel) { return (pixel & alphaBits) != 0; });
}

/// Cuts the colours off the mask of a black and white icon, below which they stand.
Picture takeColours(Picture &mask)
{
    mask.height /= 2;
    const auto middle = mask.pixels.begin() + static_cast<std::ptrdiff_t>(mask.width) * mask.height;
    Picture colours{mask.width, mask.height, {middle, mask.pixels.end()}};
    mask.pixels.erase(middle, mask.pixels.end());
    return colours;
}

/// Opaque where the mask is black, else clear. Empty if there is no mask of that size.
Picture masked(Picture colours, const Picture &mask)
{
    if (mask.width != colours.width || mask.pixels.size() != colours.pixels.size())
        return {};
    std::transform(colours.pixels.begin(), colours.pixels.end(), mask.pixels.begin(), colours.pixels.begin(),
                   [](std::uint32_t colour, std::uint32_t maskColour) {
                       const bool isClear = (maskColour & ~alphaBits) != 0;
                       return (colour & ~alphaBits) | (isClear ? 0 : alphaBits);
                   });
    return colours;
}

class WindowsIcon : public Icon
{
public:
    explicit WindowsIcon(HICON icon)
        : m_icon(icon)
    {
    }

    Picture picture() override
    {
        ICONINFO info{};
        if (!GetIconInfo(m_icon.get(), &info))
            return {};
        const UniqueBitmap maskBitmap(info.hbmMask);
        const UniqueBitmap colourBitmap(info.hbmColor);
        Picture mask = copyPixels(maskBitmap.get());
        Picture colours = colourBitmap ? copyPixels(colourBitmap.get()) : takeColours(mask);
        return hasAlpha(colours) ? colours : masked(std::move(colours), mask);
    }

private:
    const UniqueIcon m_icon;
};

std::unique_ptr<Icon> iconOf(HICON icon)
{
    return icon ? std::make_unique<WindowsIcon>(icon) : nullptr;
}

} // namespace

ExtractedIcons WindowsIcons::extract(const std::u16string &file, int index)
{
    HICON large = nullptr;
    HICON small = nullptr;
    const UINT count = ExtractIconExW(wide(nativePath(file)), index, &large, &small, 1);
    // Where nothing is found, Wine leaves handles of nothing.
    if (count == 0 || count == UINT_MAX)
        return {};
    ExtractedIcons icons{0, iconOf(large), iconOf(small)};
    icons.count = (icons.large ? 1U : 0U) + (icons.small ? 1U : 0U);
    return icons;
}

int WindowsIcons::screenDensity()
{
    const WindowContext screen(nullptr);
    return GetDeviceCaps(screen.get(), LOGPIXELSX);
}

} // namespace platform
