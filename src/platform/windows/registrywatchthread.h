#pragma once

#include "platform/registry.h"
#include "platform/windows/handles.h"
#include "platform/windows/registrydata.h"

#include <vector>

namespace platform {

/// Tells of changes to a value by waiting for them on a thread of its own, where the shell does not tell
/// them.
///
/// The system only says that something has changed, once, so the key is watched again before its value is
/// read and compared with what it was. A key does not tell of its own end on every system, but the one above
/// it does: all on the way are watched for keys that come and go. While nothing changes, nothing runs.
class RegistryWatchThread : public RegistryNotification
{
public:
    RegistryWatchThread(HKEY root, std::u16string subkey, std::u16string name, RegistryListener listener);
    ~RegistryWatchThread() override;
    RegistryWatchThread(const RegistryWatchThread &) = delete;
    RegistryWatchThread &operator=(const RegistryWatchThread &) = delete;

    /// Has changes told from now on. False if there is no such key, or the system does not tell its changes.
    bool start();

private:
    static DWORD WINAPI run(void *watch);

    void work();
    /// Whether the key is there.
    bool watchKeys();
    /// False if it is time to end.
    bool waitForChange() const;
    std::optional<RegistryData> readValue() const;

    const HKEY m_root;
    const std::u16string m_subkey;
    const std::u16string m_name;
    const RegistryListener m_listener;
    const UniqueHandle m_end;
    const UniqueHandle m_started;
    UniqueHandle m_changed; ///< set by a change of what is watched
    std::vector<UniqueKey> m_above; ///< the root and the keys below it, as far as they are there
    UniqueKey m_key; ///< null while it is missing
    UniqueHandle m_thread;
};

} // namespace platform
