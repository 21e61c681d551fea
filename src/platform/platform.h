#pragma once

#include <memory>

namespace platform {

class Shell;

/// The services of one operating system. Plain C++17; texts are UTF-16, failures are values.
///
/// A service that a system lacks is an object that says so in its answers, never a null pointer.
class Platform
{
public:
    virtual ~Platform() = default;

    virtual Shell &shell() = 0;
};

/// The platform in force: the one installed last, else the back end that this build is for, made on
/// first use. GUI thread only.
Platform &current();

/// Puts @p platform in force, or with null the build's own back end again. The one before is destroyed.
void install(std::unique_ptr<Platform> platform);

} // namespace platform
