#include "platform/windows/outlook/windowsoutlook.h"

#include "platform/windows/outlook/outlookfolder.h"
#include "platform/windows/outlook/outlookitems.h"
#include "platform/windows/systemtime.h"

namespace platform {

namespace {

/// What the system takes for dates. Its own check lets pass what is no number at all.
bool canBeWritten(VariantDate date)
{
    constexpr VariantDate first = -657434; // 1 January 100
    constexpr VariantDate behindLast = 2958466; // 1 January 10000
    return date > first - 1 && date < behindLast;
}

class WindowsOutlookApp : public IPOutlookApp
{
public:
    explicit WindowsOutlookApp(OutlookSessionPointer session)
        : m_session(std::move(session))
    {
    }

    ~WindowsOutlookApp() override
    {
        // Items that live longer keep the store's object, and with it, it would go on telling of changes.
        if (m_isLoggedOn)
            store().Logoff();
    }

    WindowsOutlookApp(const WindowsOutlookApp &) = delete;
    WindowsOutlookApp &operator=(const WindowsOutlookApp &) = delete;

    bool Logon(WindowHandle window) override
    {
        // Handles have 32 bits, which are sign-extended where pointers have more.
        const bool isDone = SUCCEEDED(store().Logon(static_cast<LONG>(window)));
        m_isLoggedOn = m_isLoggedOn || isDone;
        return isDone;
    }

    bool Logoff() override
    {
        m_isLoggedOn = false;
        return SUCCEEDED(store().Logoff());
    }

    std::unique_ptr<IFolder> GetDefaultFolder(OutlookFolder folder) override
    {
        auto found = obtain<pimstore::IFolder>([&](pimstore::IFolder **given) {
            return store().GetDefaultFolder(static_cast<int>(folder), given);
        });
        return found ? std::make_unique<WindowsFolder>(m_session, std::move(found)) : nullptr;
    }

    std::unique_ptr<IPOutlookItem> GetItemFromOid(std::int32_t oid) override
    {
        return makeItem(m_session, obtain<IDispatch>([&](IDispatch **item) {
                            return store().GetItemFromOid(oid, item);
                        }));
    }

    std::optional<SystemTime> VariantTimeToSystemTime(VariantDate date) override
    {
        SYSTEMTIME time{};
        if (!canBeWritten(date) || FAILED(store().VariantTimeToSystemTime(date, &time)))
            return std::nullopt;
        return fromSystem(time);
    }

    std::optional<VariantDate> SystemTimeToVariantTime(const SystemTime &time) override
    {
        SYSTEMTIME given = toSystem(time);
        VariantDate date = 0;
        if (FAILED(store().SystemTimeToVariantTime(&given, &date)))
            return std::nullopt;
        return date;
    }

private:
    pimstore::IPOutlookApp &store() const { return m_session->application(); }

    const OutlookSessionPointer m_session;
    bool m_isLoggedOn = false;
};

} // namespace

std::unique_ptr<IPOutlookApp> WindowsOutlook::createApplication()
{
    OutlookSessionPointer session = OutlookSession::open();
    return session ? std::make_unique<WindowsOutlookApp>(std::move(session)) : nullptr;
}

} // namespace platform
