#pragma once

#include "platform/registry.h"

namespace platform {

class ShellNotifications;

/// The system's registry. Changes are told by the shell where it can (ShellNotifications), and else by a
/// thread for each listener (RegistryWatchThread). It must outlive its notifications. A value may have up to
/// 64 MB.
class WindowsRegistry : public Registry
{
public:
    WindowsRegistry();
    ~WindowsRegistry() override;

    RegistryOpening open(RegistryRoot root, const std::optional<std::u16string> &subkey) override;
    std::unique_ptr<RegistryNotification> notify(RegistryRoot root, const std::u16string &subkey,
                                                 const std::u16string &name,
                                                 RegistryListener listener) override;

private:
    const std::unique_ptr<ShellNotifications> m_shell;
};

} // namespace platform
