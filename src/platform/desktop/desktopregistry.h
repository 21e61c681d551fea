#pragma once

#include "platform/desktop/registrystore.h"
#include "platform/desktop/registrywatch.h"
#include "platform/registry.h"

#include <mutex>

namespace platform {

/// The registry of the simulated device. Should its file be unusable, that is told on standard error, once.
/// Any thread.
class DesktopRegistry : public Registry
{
public:
    DesktopRegistry(const DeviceFolder &device, RegistryStore &store);

    RegistryOpening open(RegistryRoot root, const std::optional<std::u16string> &subkey) override;
    std::unique_ptr<RegistryNotification> notify(RegistryRoot root, const std::u16string &subkey,
                                                 const std::u16string &name,
                                                 RegistryListener listener) override;

private:
    RegistryStore &m_store;
    std::once_flag m_warning;
    RegistryWatch m_watch;
};

} // namespace platform
