#include "platform/windows/pixels.h"

namespace platform {

namespace {

/// The pixels from the origin of a drawing context on.
Picture copyPixels(HDC source, int width, int height)
{
    if (width < 1 || height < 1 || width > mostPixels || height > mostPixels)
        return {};
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof(format.bmiHeader);
    format.bmiHeader.biWidth = width;
    format.bmiHeader.biHeight = -height; // from the top
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    format.bmiHeader.biCompression = BI_RGB;
    void *bits = nullptr;
    const UniqueContext context(CreateCompatibleDC(source));
    const UniqueBitmap bitmap(
        context ? CreateDIBSection(context.get(), &format, DIB_RGB_COLORS, &bits, nullptr, 0) : nullptr);
    if (!bitmap)
        return {};
    const Selection selection(context.get(), bitmap.get());
    if (!selection.isMade() || !BitBlt(context.get(), 0, 0, width, height, source, 0, 0, SRCCOPY))
        return {};
    // The system may put off what it draws until it is asked something.
    GetPixel(context.get(), 0, 0);
    const auto *const pixels = static_cast<const std::uint32_t *>(bits);
    return {
        width, height, {pixels, pixels + static_cast<std::size_t>(width) * static_cast<unsigned>(height)}};
}

} // namespace

Picture copyPixels(HBITMAP source)
{
    BITMAP form{};
    const UniqueContext context(CreateCompatibleDC(nullptr));
    if (!context || GetObjectW(source, sizeof(form), &form) == 0)
        return {};
    const Selection selection(context.get(), source);
    return selection.isMade() ? copyPixels(context.get(), form.bmWidth, form.bmHeight) : Picture();
}

} // namespace platform
