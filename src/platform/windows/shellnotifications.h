#pragma once

#include "platform/registry.h"
#include "platform/windows/criticalsection.h"
#include "platform/windows/latelibrary.h"

namespace platform {

/// Changes of registry values as the shell of devices tells them (aygshell.dll), on a thread of its own. Any
/// thread. Must outlive what it has begun.
class ShellNotifications
{
public:
    ShellNotifications();
    ~ShellNotifications();

    /// Whether this system has them. While it has not, each call looks again.
    bool areThere();

    /// Null if the shell refuses, or is not there.
    std::unique_ptr<RegistryNotification> begin(HKEY root, const std::u16string &subkey,
                                                const std::u16string &name, RegistryListener listener);

private:
    struct Functions;

    Functions functions();

    CriticalSection m_lock; ///< guards the library
    LateLibrary m_library;
};

} // namespace platform
