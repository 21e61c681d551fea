#include "platform/windows/windowhandles.h"
#include "platform/windows/windowshiddenwindows.h"

// A library that opens a hidden window, as the plug-in does.

namespace {

std::unique_ptr<platform::HiddenWindowClass> windowClass;
std::unique_ptr<platform::HiddenWindow> window;

} // namespace

extern "C" HWND openWindow(const char16_t *className)
{
    platform::WindowsHiddenWindows windows;
    windowClass = windows.registerClass(className, [](const platform::WindowMessage &) { return false; });
    window = windowClass ? windowClass->createWindow() : nullptr;
    return window ? platform::windowOf(window->handle()) : nullptr;
}

extern "C" void closeWindow()
{
    window.reset();
    windowClass.reset();
}
