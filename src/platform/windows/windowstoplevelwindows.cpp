#include "platform/windows/windowstoplevelwindows.h"

#include "platform/windows/pixels.h"
#include "platform/windows/seams/windowseam.h"
#include "platform/windows/widetext.h"
#include "platform/windows/windowhandles.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int longestText = 0x8000; // with its closing null

BOOL CALLBACK handOver(HWND window, LPARAM take)
{
    return (*reinterpret_cast<const std::function<bool(WindowHandle)> *>(take))(handleOf(window));
}

/// What a window shows from its origin on; null on failure.
UniqueBitmap copyWindow(HWND window, int width, int height)
{
    if (width > mostPixels || height > mostPixels)
        return nullptr;
    const WindowContext source(window);
    const UniqueContext target(source.get() ? CreateCompatibleDC(source.get()) : nullptr);
    UniqueBitmap bitmap(target ? CreateCompatibleBitmap(source.get(), width, height) : nullptr);
    if (!bitmap)
        return nullptr;
    const Selection selection(target.get(), bitmap.get());
    if (!selection.isMade() || !BitBlt(target.get(), 0, 0, width, height, source.get(), 0, 0, SRCCOPY))
        return nullptr;
    return bitmap;
}

/// A text that @p fill writes to a buffer of that length, telling how many units it wrote, and that may have
/// been cut.
template <typename Fill>
std::u16string textInBuffer(int bufferLength, Fill fill)
{
    if (bufferLength <= 1)
        return {};
    std::wstring buffer(static_cast<std::size_t>(std::min(bufferLength, longestText)), L'\0');
    const int written = static_cast<int>(fill(buffer.data(), static_cast<int>(buffer.size())));
    const int length = std::clamp(written, 0, static_cast<int>(buffer.size()) - 1);
    buffer.resize(static_cast<std::size_t>(length));
    const bool endsInHalf = !buffer.empty() && buffer.back() >= 0xd800 && buffer.back() < 0xdc00;
    if (endsInHalf)
        buffer.pop_back();
    return utf16(buffer);
}

} // namespace

std::optional<WindowHandle> WindowsTopLevelWindows::find(const std::u16string &title)
{
    const HWND window = FindWindowW(nullptr, wide(title));
    return window ? std::optional(handleOf(window)) : std::nullopt;
}

bool WindowsTopLevelWindows::post(WindowHandle handle, const WindowMessage &message)
{
    const HWND window = windowOf(handle);
    return window
        && PostMessageW(window, message.message, static_cast<WPARAM>(message.wParam),
                        static_cast<LPARAM>(message.lParam));
}

void WindowsTopLevelWindows::enumerate(const std::function<bool(WindowHandle)> &take)
{
    EnumWindows(handOver, reinterpret_cast<LPARAM>(&take));
}

std::uint32_t WindowsTopLevelWindows::style(WindowHandle window)
{
    return static_cast<std::uint32_t>(GetWindowLongW(windowOf(window), GWL_STYLE));
}

bool WindowsTopLevelWindows::exists(WindowHandle window)
{
    return windowOf(window) != nullptr;
}

bool WindowsTopLevelWindows::isVisible(WindowHandle window)
{
    return IsWindowVisible(windowOf(window));
}

std::optional<WindowHandle> WindowsTopLevelWindows::parent(WindowHandle window)
{
    const HWND parent = GetParent(windowOf(window));
    return parent ? std::optional(handleOf(parent)) : std::nullopt;
}

std::u16string WindowsTopLevelWindows::title(WindowHandle window, int bufferLength)
{
    return textInBuffer(bufferLength, [=](wchar_t *buffer, int length) {
        return GetWindowTextW(windowOf(window), buffer, length);
    });
}

std::u16string WindowsTopLevelWindows::programFile(WindowHandle window, int bufferLength)
{
    DWORD process = 0;
    if (GetWindowThreadProcessId(windowOf(window), &process) == 0)
        return {};
    return textInBuffer(bufferLength, [=](wchar_t *buffer, int length) {
        return windowseam::programFile(process, buffer, static_cast<DWORD>(length));
    });
}

Picture WindowsTopLevelWindows::snapshot(WindowHandle handle)
{
    const HWND window = windowOf(handle);
    RECT area{};
    if (!IsWindowVisible(window) || windowseam::isMinimized(window) || !GetWindowRect(window, &area))
        return {};
    const UniqueBitmap bitmap = copyWindow(window, area.right - area.left, area.bottom - area.top);
    if (!bitmap)
        return {};
    Picture picture = copyPixels(bitmap.get());
    for (std::uint32_t &pixel : picture.pixels)
        pixel |= alphaBits;
    return picture;
}

bool WindowsTopLevelWindows::setForeground(WindowHandle window)
{
    return SetForegroundWindow(windowOf(window));
}

void WindowsTopLevelWindows::close(WindowHandle handle)
{
    if (const HWND window = windowOf(handle))
        SendMessageW(window, WM_CLOSE, 0, 0);
}

} // namespace platform
