#pragma once

#include "platform/desktop/devicefolder.h"
#include "platform/registry.h"

#include <QtCore/QByteArray>

#include <memory>
#include <mutex>

namespace platform {

class RegistryStore;

/// Tells listeners of changes to the registry's values, whichever process makes them.
///
/// While there is a listener, the registry lists every change in the transaction that makes it. A thread
/// waits for writes to the file, reads what the list holds since it last looked, and calls the listeners; the
/// list is cut when every living watcher has read it. While nothing is written, nothing runs. Any thread.
class RegistryWatch
{
public:
    RegistryWatch(const DeviceFolder &device, RegistryStore &store);
    ~RegistryWatch();

    /// Calls @p listener on the watching thread for each change from now on. Null if the registry cannot be
    /// watched. The watch must outlive what it returns.
    std::unique_ptr<RegistryNotification> add(const QByteArray &comparablePath,
                                              const QByteArray &comparableName, RegistryListener listener);

private:
    class Registration;
    class Session;

    void remove(Registration &registration);

    const DeviceFolder m_device;
    RegistryStore &m_store;
    std::mutex m_mutex; ///< guards the start and end of sessions
    std::unique_ptr<Session> m_session; ///< while there is a listener
};

} // namespace platform
