#include "platform/desktop/desktopwindows.h"

#include "platform/desktop/messagewindow.h"

namespace platform {

namespace {
/// Above all numbers of the X Window System, which have 32 bits.
constexpr WindowHandle firstHandle = WindowHandle(1) << 32;
} // namespace

DesktopWindows::DesktopWindows(const DeviceFolder &device)
    : m_device(device)
{
}

std::optional<WindowHandle> DesktopWindows::find(const std::u16string &title)
{
    const QString text = QString::fromStdU16String(title);
    if (!MessageWindow::exists(m_device, text))
        return std::nullopt;
    if (!m_found.contains(text))
        m_found.append(text);
    return firstHandle + static_cast<WindowHandle>(m_found.indexOf(text));
}

bool DesktopWindows::post(WindowHandle window, const WindowMessage &message)
{
    if (window < firstHandle || window - firstHandle >= static_cast<WindowHandle>(m_found.size()))
        return false;
    return MessageWindow::post(m_device, m_found.at(static_cast<int>(window - firstHandle)), message);
}

} // namespace platform
