#pragma once

#include "platform/toplevelwindows.h"

#include <memory>
#include <string>
#include <vector>

namespace contracts {

/// The helper program windowopener, which opens windows, 91 pixels wide and 61 high, red with a blue edge one
/// pixel wide, and tells what happens to them; see there. Ends it when it is destroyed.
class WindowOpener
{
public:
    virtual ~WindowOpener() = default;

    /// The program, as programFile() tells it.
    virtual std::u16string file() const = 0;

    /// What it tells next: "active TITLE" or "closed TITLE". Waits for it; empty if there will be no more.
    virtual std::string readLine() = 0;

    /// Waits until it has told that.
    bool tells(const std::string &expected)
    {
        std::string line;
        do
            line = readLine();
        while (!line.empty() && line != expected);
        return line == expected;
    }
};

/// @p windows are kinds and titles in turn.
std::unique_ptr<WindowOpener> openWindows(const std::vector<std::u16string> &windows);

/// A window that is not seen, and that others find by its title. Takes messages from the event loop.
class MessageTarget
{
public:
    virtual ~MessageTarget() = default;

    /// The back end that may find it.
    virtual platform::TopLevelWindows &windows() = 0;

    std::vector<platform::WindowMessage> taken;
};

std::unique_ptr<MessageTarget> makeTarget(const std::u16string &title);

} // namespace contracts
