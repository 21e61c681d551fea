#pragma once

#include "platform/picture.h"
#include "platform/windows/handles.h"

namespace platform {

using UniqueBitmap = Unique<HBITMAP, DeleteObject>;
using UniqueContext = Unique<HDC, DeleteDC>;

constexpr int mostPixels = 8192; // either way
constexpr std::uint32_t alphaBits = 0xff000000;

/// A window's drawing context, or the screen's, given back at the end (GetDC, ReleaseDC).
class WindowContext
{
public:
    /// Null stands for the screen.
    explicit WindowContext(HWND window)
        : m_window(window)
        , m_context(GetDC(window))
    {
    }
    ~WindowContext()
    {
        if (m_context)
            ReleaseDC(m_window, m_context);
    }
    WindowContext(const WindowContext &) = delete;
    WindowContext &operator=(const WindowContext &) = delete;

    /// Null if the window has gone.
    HDC get() const { return m_context; }

private:
    const HWND m_window;
    const HDC m_context;
};

/// Lets a drawing context work on a bitmap (SelectObject).
class Selection
{
public:
    Selection(HDC context, HBITMAP bitmap)
        : m_context(context)
        , m_before(SelectObject(context, bitmap))
    {
    }
    ~Selection()
    {
        if (m_before)
            SelectObject(m_context, m_before);
    }
    Selection(const Selection &) = delete;
    Selection &operator=(const Selection &) = delete;

    bool isMade() const { return m_before != nullptr; }

private:
    const HDC m_context;
    const HGDIOBJ m_before;
};

/// The pixels of a whole bitmap, which must not be in use in a drawing context. The alpha values are those it
/// has, so 0 if it has none. Of a bitmap of one bit, set pixels are white and the others black. Empty if it
/// cannot be read, or has more than mostPixels either way.
Picture copyPixels(HBITMAP source);

} // namespace platform
