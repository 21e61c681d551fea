#pragma once

#include "platform/platform.h"

#include <chrono>
#include <memory>
#include <string>

// What the contract tests need of the back end that they run on, beside the platform itself. Their sources
// know neither Qt nor an operating system, and are compiled for each back end.

namespace contracts {

/// A platform as the plug-in gets it. On the desktop its device is a new one, filled with samples.
std::unique_ptr<platform::Platform> makePlatform();

/// An empty folder, which is removed when the program ends: an absolute path of the machine, without a
/// closing separator.
std::u16string scratchFolder();

/// Takes the events of the GUI thread that there are, and waits a few milliseconds for more.
void processEvents();

/// Takes events until @p isDone says true. False if it does not within 20 seconds.
template <typename Condition>
bool waitUntil(Condition isDone)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isDone()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        processEvents();
    }
    return true;
}

} // namespace contracts
