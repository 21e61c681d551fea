#include "platform/windows/registrywatchthread.h"

#include "platform/windows/seams/registryseam.h"
#include "platform/windows/widetext.h"

namespace platform {

namespace {

UniqueKey watchKey(HKEY root, const std::u16string &subkey, HANDLE event)
{
    HKEY key = nullptr;
    const LONG status = registryseam::openWatched(root, subkey.empty() ? nullptr : wide(subkey), event, &key);
    return UniqueKey(status == ERROR_SUCCESS ? key : nullptr);
}

HANDLE makeEvent()
{
    constexpr BOOL resetByHand = TRUE;
    return CreateEventW(nullptr, resetByHand, FALSE, nullptr);
}

} // namespace

RegistryWatchThread::RegistryWatchThread(HKEY root, std::u16string subkey, std::u16string name,
                                         RegistryListener listener)
    : m_root(root)
    , m_subkey(std::move(subkey))
    , m_name(std::move(name))
    , m_listener(std::move(listener))
    , m_end(makeEvent())
    , m_started(makeEvent())
{
}

RegistryWatchThread::~RegistryWatchThread()
{
    if (!m_thread)
        return;
    SetEvent(m_end.get());
    WaitForSingleObject(m_thread.get(), INFINITE);
}

bool RegistryWatchThread::start()
{
    if (!m_end || !m_started)
        return false;
    m_thread.reset(CreateThread(nullptr, 0, run, this, 0, nullptr));
    const HANDLE startedOrEnded[] = {m_started.get(), m_thread.get()};
    return m_thread && WaitForMultipleObjects(2, startedOrEnded, FALSE, INFINITE) == WAIT_OBJECT_0;
}

DWORD WINAPI RegistryWatchThread::run(void *watch)
{
    static_cast<RegistryWatchThread *>(watch)->work();
    return 0;
}

void RegistryWatchThread::work()
{
    // What watches belongs to the thread that asks for it, so the beginning is made here, too.
    if (!watchKeys())
        return;
    std::optional<RegistryData> known = readValue();
    SetEvent(m_started.get());
    while (waitForChange()) {
        watchKeys();
        std::optional<RegistryData> now = readValue();
        if (now == known)
            continue;
        known = std::move(now);
        m_listener(known ? std::optional(known->bytes) : std::nullopt);
    }
}

bool RegistryWatchThread::waitForChange() const
{
    const HANDLE endOrChange[] = {m_end.get(), m_changed.get()};
    return WaitForMultipleObjects(2, endOrChange, FALSE, INFINITE) == WAIT_OBJECT_0 + 1;
}

bool RegistryWatchThread::watchKeys()
{
    // A new one, since closing a watched key counts as a change and sets its event.
    m_changed.reset(makeEvent());
    m_above.clear();
    // Downwards: what comes or goes after a key has been tried is told by the one above it.
    for (std::size_t end = 0; end < m_subkey.size(); end = m_subkey.find(u'\\', end + 1)) {
        const bool isRepeated = end > 0 && m_subkey[end - 1] == u'\\';
        if (!isRepeated)
            m_above.push_back(watchKey(m_root, m_subkey.substr(0, end), m_changed.get()));
    }
    m_key = watchKey(m_root, m_subkey, m_changed.get());
    return m_key != nullptr;
}

std::optional<RegistryData> RegistryWatchThread::readValue() const
{
    return m_key ? readData(m_key.get(), m_name, largestValue) : std::nullopt;
}

} // namespace platform
