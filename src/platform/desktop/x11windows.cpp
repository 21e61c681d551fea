#include "platform/desktop/x11windows.h"

#include "platform/desktop/plainpicture.h"

#include <KWindowInfo>
#include <KX11Extras>
#include <QtCore/QFile>
#include <QtCore/QSysInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtX11Extras/QX11Info>
#include <netwm.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform {

namespace {

constexpr int largestPicture = 8192; // pixels, either way

/// The X server that shows this program's windows; null if there is none.
xcb_connection_t *connection()
{
    return QX11Info::isPlatformX11() ? QX11Info::connection() : nullptr;
}

/// What is asked for of the window, and its geometry; nothing if it has gone.
std::optional<KWindowInfo> ask(WindowHandle window, NET::Properties properties,
                               NET::Properties2 properties2 = {})
{
    if (!connection() || window > std::numeric_limits<xcb_window_t>::max())
        return std::nullopt;
    const KWindowInfo info(window, properties | NET::WMGeometry, properties2);
    // Properties that cannot be read count as missing, but each window has a size.
    return info.geometry().isEmpty() ? std::nullopt : std::optional(info);
}

std::vector<xcb_window_t> listedWindows()
{
    if (!connection())
        return {};
    const NETRootInfo root(connection(), NET::ClientList | NET::ClientListStacking);
    // Not every window manager tells the order.
    const auto [windows, count] = root.clientListStackingCount() > 0
        ? std::pair(root.clientListStacking(), root.clientListStackingCount())
        : std::pair(root.clientList(), root.clientListCount());
    return {std::make_reverse_iterator(windows + count), std::make_reverse_iterator(windows)};
}

bool belongsToDesktop(WindowHandle window)
{
    const auto info = ask(window, NET::WMWindowType);
    const NET::WindowType type = info ? info->windowType(NET::AllTypesMask) : NET::Unknown;
    return type == NET::Desktop || type == NET::Dock;
}

bool isOwn(WindowHandle window)
{
    const QWindowList own = QGuiApplication::topLevelWindows();
    return std::any_of(own.cbegin(), own.cend(), [window](const QWindow *candidate) {
        return candidate->handle() && candidate->winId() == window;
    });
}

/// Whether the window is on another virtual desktop; wants its desktop asked for.
bool isElsewhere(const KWindowInfo &info)
{
    // Window managers without virtual desktops tell none of a window.
    return info.desktop() != 0 && !info.isOnCurrentDesktop();
}

std::u16string cutToBuffer(const QString &text, int bufferLength)
{
    int length = std::max(1, bufferLength) - 1;
    if (length > 0 && length < text.size() && text.at(length - 1).isHighSurrogate())
        --length;
    return text.left(length).toStdU16String();
}

/// The program that a process of this machine runs.
QString runningFile(int process)
{
    const QString file = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(process));
    const QLatin1String mark(" (deleted)");
    return file.endsWith(mark) && !QFile::exists(file) ? file.chopped(mark.size()) : file;
}

/// What the screen shows at that place, in the X server's pixels, which are not Qt's if Qt scales.
QImage screenPicture(const QRect &area)
{
    QScreen *const screen = QGuiApplication::primaryScreen();
    const auto root = ask(QX11Info::appRootWindow(), NET::Properties());
    if (!screen || !root || !area.intersects(root->geometry()))
        return {};
    const QRect shown = area & root->geometry();
    const qreal scale = screen->devicePixelRatio();
    const auto scaledDown = [scale](int pixels) { return static_cast<int>(std::floor(pixels / scale)); };
    const QPoint start(scaledDown(shown.x()), scaledDown(shown.y()));
    constexpr int spare = 3; // for what rounding takes away
    // The window itself might be gone by now, which Qt would complain about.
    QImage picture = screen
                         ->grabWindow(QX11Info::appRootWindow(), start.x(), start.y(),
                                      scaledDown(shown.width()) + spare, scaledDown(shown.height()) + spare)
                         .toImage();
    picture.setDevicePixelRatio(1);
    const QPoint grabbed = start * scale;
    return picture.copy(shown.translated(-grabbed))
        .copy(QRect(area.topLeft() - shown.topLeft(), area.size()))
        .convertToFormat(QImage::Format_RGB32);
}

} // namespace

void X11Windows::enumerate(const std::function<bool(WindowHandle)> &take)
{
    for (const WindowHandle window : listedWindows()) {
        if (!belongsToDesktop(window) && !take(window))
            return;
    }
}

std::uint32_t X11Windows::style(WindowHandle)
{
    return 0;
}

bool X11Windows::exists(WindowHandle window)
{
    return ask(window, NET::Properties()).has_value();
}

bool X11Windows::isVisible(WindowHandle window)
{
    const auto info = ask(window, NET::XAWMState);
    return info && info->mappingState() != NET::Withdrawn;
}

std::optional<WindowHandle> X11Windows::parent(WindowHandle window)
{
    const auto info = ask(window, NET::Properties(), NET::WM2TransientFor);
    const WindowHandle parent = info ? info->transientFor() : 0;
    // A dialog of all windows of its program names the root window.
    if (parent == 0 || parent == window || parent == QX11Info::appRootWindow())
        return std::nullopt;
    return parent;
}

std::u16string X11Windows::title(WindowHandle window, int bufferLength)
{
    if (isOwn(window))
        return cutToBuffer(QStringLiteral("HOLM"), bufferLength);
    const auto info = ask(window, NET::WMName);
    return info ? cutToBuffer(info->name(), bufferLength) : std::u16string();
}

std::u16string X11Windows::programFile(WindowHandle window, int bufferLength)
{
    const auto info = ask(window, NET::WMPid, NET::WM2ClientMachine);
    if (!info || info->pid() <= 0 || info->clientMachine() != QSysInfo::machineHostName().toLocal8Bit())
        return {};
    return cutToBuffer(runningFile(info->pid()), bufferLength);
}

Picture X11Windows::snapshot(WindowHandle window)
{
    const auto info = ask(window, NET::WMDesktop | NET::XAWMState);
    if (!info || info->mappingState() != NET::Visible || isElsewhere(*info))
        return {};
    const QRect area = info->geometry();
    if (area.width() > largestPicture || area.height() > largestPicture)
        return {};
    return toPicture(screenPicture(area).convertToFormat(QImage::Format_RGB32));
}

bool X11Windows::setForeground(WindowHandle window)
{
    const auto info = ask(window, NET::WMDesktop);
    if (!info)
        return false;
    // Not every window manager goes there itself.
    if (isElsewhere(*info))
        KX11Extras::setCurrentDesktop(info->desktop());
    KX11Extras::forceActiveWindow(window);
    return exists(window); // the X server answers when it has done what was asked before
}

void X11Windows::close(WindowHandle window)
{
    if (!exists(window))
        return;
    NETRootInfo(connection(), NET::Properties()).closeWindowRequest(static_cast<xcb_window_t>(window));
    exists(window); // the X server answers when it has done what was asked before
}

} // namespace platform
