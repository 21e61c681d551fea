#include "platform/windows/shellnotifications.h"

#include "platform/windows/library.h"
#include "platform/windows/widetext.h"

#include <map>

namespace platform {

namespace {

struct ShellRegistration; // known to the shell alone

using ShellCallback = void(ShellRegistration *registration, DWORD number, BYTE *data, UINT size);
using RegistryNotifyCallback = HRESULT WINAPI(HKEY root, const wchar_t *subkey, const wchar_t *name,
                                              ShellCallback *callback, DWORD number, void *condition,
                                              ShellRegistration **registration);
using RegistryCloseNotification = HRESULT WINAPI(ShellRegistration *registration);

/// A listener as long as it may be called.
class Recipient
{
public:
    explicit Recipient(RegistryListener listener)
        : m_listener(std::move(listener))
    {
    }

    void tell(const std::optional<RegistryBytes> &data)
    {
        const CriticalSection::Lock lock(m_lock);
        if (m_listener)
            m_listener(data);
    }

    /// Once this has returned, the listener is not being called and will not be called any more.
    void leave()
    {
        const CriticalSection::Lock lock(m_lock);
        m_listener = nullptr;
    }

private:
    CriticalSection m_lock; ///< held while the listener is called
    RegistryListener m_listener;
};

/// The recipients by their numbers, which are all that the shell knows of them: it may still call for one
/// that has gone, and its word has no room for a pointer everywhere.
class Recipients
{
public:
    DWORD add(const std::shared_ptr<Recipient> &recipient)
    {
        const CriticalSection::Lock lock(m_lock);
        do {
            ++m_latest;
        } while (!m_all.emplace(m_latest, recipient).second);
        return m_latest;
    }

    void remove(DWORD number)
    {
        const CriticalSection::Lock lock(m_lock);
        m_all.erase(number);
    }

    /// Null if it has gone.
    std::shared_ptr<Recipient> find(DWORD number)
    {
        const CriticalSection::Lock lock(m_lock);
        const auto there = m_all.find(number);
        return there != m_all.end() ? there->second : nullptr;
    }

private:
    CriticalSection m_lock;
    std::map<DWORD, std::shared_ptr<Recipient>> m_all;
    DWORD m_latest = 0;
};

Recipients &recipients()
{
    static Recipients all;
    return all;
}

void tellRecipient(ShellRegistration *, DWORD number, BYTE *data, UINT size)
{
    if (const std::shared_ptr<Recipient> recipient = recipients().find(number))
        recipient->tell(data ? std::optional(RegistryBytes(data, data + size)) : std::nullopt);
}

class ShellNotification : public RegistryNotification
{
public:
    ShellNotification(RegistryListener listener, RegistryCloseNotification *close)
        : m_recipient(std::make_shared<Recipient>(std::move(listener)))
        , m_number(recipients().add(m_recipient))
        , m_close(close)
    {
    }

    ~ShellNotification() override
    {
        recipients().remove(m_number);
        if (m_registration)
            m_close(m_registration); // which may wait for the shell's calls to return
        m_recipient->leave();
    }

    ShellNotification(const ShellNotification &) = delete;
    ShellNotification &operator=(const ShellNotification &) = delete;

    bool begin(RegistryNotifyCallback *notify, HKEY root, const std::u16string &subkey,
               const std::u16string &name)
    {
        return SUCCEEDED(
            notify(root, wide(subkey), wide(name), tellRecipient, m_number, nullptr, &m_registration));
    }

private:
    const std::shared_ptr<Recipient> m_recipient;
    const DWORD m_number;
    RegistryCloseNotification *const m_close;
    ShellRegistration *m_registration = nullptr;
};

} // namespace

struct ShellNotifications::Functions
{
    RegistryNotifyCallback *notify;
    RegistryCloseNotification *close;

    explicit operator bool() const { return notify && close; }
};

ShellNotifications::ShellNotifications()
    : m_library(L"aygshell.dll")
{
}

ShellNotifications::~ShellNotifications() = default;

bool ShellNotifications::areThere()
{
    return static_cast<bool>(functions());
}

std::unique_ptr<RegistryNotification> ShellNotifications::begin(HKEY root, const std::u16string &subkey,
                                                                const std::u16string &name,
                                                                RegistryListener listener)
{
    const Functions shell = functions();
    if (!shell)
        return nullptr;
    auto notification = std::make_unique<ShellNotification>(std::move(listener), shell.close);
    if (!notification->begin(shell.notify, root, subkey, name))
        return nullptr;
    return notification;
}

ShellNotifications::Functions ShellNotifications::functions()
{
    const CriticalSection::Lock lock(m_lock);
    const Library &library = m_library.get();
    return {library.find<RegistryNotifyCallback>(L"RegistryNotifyCallback"),
            library.find<RegistryCloseNotification>(L"RegistryCloseNotification")};
}

} // namespace platform
