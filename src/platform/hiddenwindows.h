#pragma once

#include "platform/toplevelwindows.h"

#include <functional>
#include <memory>
#include <string>

namespace platform {

/// Takes a message to a hidden window; false leaves it to the system's own handling (DefWindowProcW).
using WindowProcedure = std::function<bool(const WindowMessage &message)>;

/// A window without a name that is never shown and only takes messages. Its destructor destroys it
/// (DestroyWindow); messages that have not been taken by then are dropped.
class HiddenWindow
{
public:
    virtual ~HiddenWindow() = default;

    /// What messages are sent to; never 0.
    virtual WindowHandle handle() const = 0;
};

/// A registered class of windows, unregistered by its destructor (UnregisterClassW). Has to outlive its
/// windows.
class HiddenWindowClass
{
public:
    virtual ~HiddenWindowClass() = default;

    /// Makes a window of the class (CreateWindowExW without styles, name, size or parent). Null on failure.
    virtual std::unique_ptr<HiddenWindow> createWindow() = 0;
};

/// Windows of this program that only take messages. GUI thread only: messages are taken there, one after the
/// other in the order in which they were posted, from its event loop.
class HiddenWindows
{
public:
    virtual ~HiddenWindows() = default;

    /// Registers a class (RegisterClassW: redrawn when it changes its size, a hollow background, neither icon
    /// nor cursor nor menu). Null if the program has a class of that name already, or on another failure.
    virtual std::unique_ptr<HiddenWindowClass> registerClass(const std::u16string &name,
                                                             WindowProcedure procedure) = 0;
};

} // namespace platform
