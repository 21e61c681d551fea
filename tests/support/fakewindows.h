#pragma once

#include "platform/toplevelwindows.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <vector>

struct FakeWindow
{
    platform::WindowHandle handle = 0;
    QString title;
    QString program = {};
    std::uint32_t style = 0;
    bool exists = true;
    bool isVisible = true;
    std::optional<platform::WindowHandle> parent = {};
    platform::Picture picture = {};
};

/// The windows that a test says, uppermost first. What is done to them is written down.
class FakeWindows : public platform::TopLevelWindows
{
public:
    using WindowHandle = platform::WindowHandle;

    std::optional<WindowHandle> find(const std::u16string &title) override
    {
        const auto isSought = [&](const FakeWindow &w) { return w.title.toStdU16String() == title; };
        const auto found = std::find_if(windows.cbegin(), windows.cend(), isSought);
        return found != windows.cend() ? std::optional(found->handle) : std::nullopt;
    }
    bool post(WindowHandle window, const platform::WindowMessage &message) override
    {
        done.append(QStringLiteral("%1: %2 %3 %4")
                        .arg(window)
                        .arg(message.message)
                        .arg(message.wParam)
                        .arg(message.lParam));
        return false;
    }
    void enumerate(const std::function<bool(WindowHandle)> &take) override
    {
        for (const FakeWindow &window : windows) {
            if (!take(window.handle))
                return;
        }
    }
    std::uint32_t style(WindowHandle window) override { return at(window).style; }
    bool exists(WindowHandle window) override { return at(window).exists; }
    bool isVisible(WindowHandle window) override { return at(window).isVisible; }
    std::optional<WindowHandle> parent(WindowHandle window) override { return at(window).parent; }
    std::u16string title(WindowHandle window, int bufferLength) override
    {
        return at(window).title.left(bufferLength - 1).toStdU16String();
    }
    std::u16string programFile(WindowHandle window, int bufferLength) override
    {
        return at(window).program.left(bufferLength - 1).toStdU16String();
    }
    platform::Picture snapshot(WindowHandle window) override { return at(window).picture; }
    bool setForeground(WindowHandle window) override
    {
        done.append(QStringLiteral("focus %1").arg(window));
        return true;
    }
    void close(WindowHandle window) override { done.append(QStringLiteral("close %1").arg(window)); }

    std::vector<FakeWindow> windows;
    QStringList done;

private:
    const FakeWindow &at(WindowHandle handle) const
    {
        static const FakeWindow none = {0, {}, {}, 0, false, false, {}, {}};
        const auto isSought = [&](const FakeWindow &w) { return w.handle == handle; };
        const auto found = std::find_if(windows.cbegin(), windows.cend(), isSought);
        return found != windows.cend() ? *found : none;
    }
};
