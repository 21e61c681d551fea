#include "contracts/backend.h"
#include "contracts/outlook.h"
#include "contracts/programfolder.h"
#include "windows/resources.h"

#include "platform/windows/library.h"
#include "platform/windows/widetext.h"

#include <gmock/gmock.h>
#include <objbase.h>

#include <filesystem>

using platform::OutlookFolder;

namespace {

/// The stand-in for Pocket Outlook, as the COM server of its class while the object lives. Each begins with
/// the samples, and expects in the end that all objects and texts were given back.
class PimstoreServer : public contracts::OutlookStore
{
public:
    PimstoreServer()
    {
        EXPECT_TRUE(m_library.isLoaded());
        setValue(nullptr, file().native());
        setValue(L"ThreadingModel", L"Both");
        m_library.find<void()>(L"resetStore")();
    }
    ~PimstoreServer() override
    {
        EXPECT_EQ(RegDeleteTreeW(HKEY_LOCAL_MACHINE, classKey), ERROR_SUCCESS);
        EXPECT_EQ(m_library.find<int()>(L"livingObjects")(), 0);
    }
    PimstoreServer(const PimstoreServer &) = delete;
    PimstoreServer &operator=(const PimstoreServer &) = delete;

    std::unique_ptr<platform::IPOutlookApp> connect() override
    {
        return m_platform->pocketOutlook().createApplication();
    }
    platform::HiddenWindows &windows() override { return m_platform->hiddenWindows(); }

    void change(std::uint32_t message, const std::u16string &subject) override
    {
        m_library.find<void(UINT, const wchar_t *)>(L"changeItem")(message, platform::wide(subject));
    }
    bool keepsText(const std::string &) const override { return true; }

    /// Has all calls fail but the next ones, so many.
    void failAfter(int calls) const { m_library.find<void(int)>(L"failAfter")(calls); }

private:
    // The machine's classes, since Wine does not look for COM classes among those of the user.
    static constexpr wchar_t classKey[] = L"Software\\Classes\\CLSID\\{05058F23-20BE-11D2-8F18-0000F87A4335}";

    static std::filesystem::path file() { return contracts::programFolder() / "standins" / "pimstore.dll"; }

    static void setValue(const wchar_t *name, const std::wstring &text)
    {
        const std::wstring key = std::wstring(classKey) + L"\\InprocServer32";
        EXPECT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, text.c_str(),
                                  static_cast<DWORD>(2 * (text.size() + 1))),
                  ERROR_SUCCESS);
    }

    const platform::Library m_library{file().c_str()};
    const std::unique_ptr<platform::Platform> m_platform = contracts::makePlatform();
};

} // namespace

std::unique_ptr<contracts::OutlookStore> contracts::makeOutlookStore()
{
    return std::make_unique<PimstoreServer>();
}

TEST(WindowsOutlook, TellsFailures)
{
    EXPECT_FALSE(contracts::makePlatform()->pocketOutlook().createApplication());
    PimstoreServer server;
    for (const int calls : {0, 1, 2}) {
        server.failAfter(calls);
        EXPECT_EQ(server.connect() != nullptr, calls == 2)
            << "making the object, and asking for its interface";
    }
    server.failAfter(1000);
    const auto connection = server.connect();
    const auto folder = connection->GetDefaultFolder(OutlookFolder::Calendar);
    const auto items = folder->get_Items();
    const auto item = items->Item(1);
    const auto contact = connection->GetDefaultFolder(OutlookFolder::Contacts)->get_Items()->Item(1);
    auto &appointment = dynamic_cast<platform::IAppointment &>(*item);
    EXPECT_FALSE(item->QueryItem()->OpenProperty(platform::OutlookStream::Picture));
    server.failAfter(0);
    EXPECT_FALSE(connection->Logon(0));
    EXPECT_FALSE(connection->Logoff());
    EXPECT_FALSE(connection->GetDefaultFolder(OutlookFolder::Calendar));
    EXPECT_FALSE(folder->get_Items());
    EXPECT_FALSE(items->get_Count());
    EXPECT_FALSE(items->put_IncludeRecurrences(true));
    EXPECT_FALSE(items->Item(1));
    EXPECT_FALSE(item->QueryItem());
    EXPECT_FALSE(appointment.get_IsRecurring() || appointment.get_Subject() || appointment.get_Start());
    EXPECT_FALSE(dynamic_cast<platform::IContact &>(*contact).get_Oid());
    EXPECT_FALSE(connection->SystemTimeToVariantTime({2009, 1, 0, 1, 0, 0, 0, 0}));
}

TEST(WindowsOutlook, LeavesTheThreadAsItWas)
{
    PimstoreServer server;
    for (const HRESULT before : {S_OK, RPC_E_CHANGED_MODE}) {
        if (before == RPC_E_CHANGED_MODE) {
            EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        }
        auto connection = server.connect();
        auto folder = connection->GetDefaultFolder(OutlookFolder::Calendar);
        connection.reset();
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), before == S_OK ? S_FALSE : before);
        if (before == S_OK)
            CoUninitialize();
        EXPECT_TRUE(folder->get_Items());
        folder.reset();
        if (before == RPC_E_CHANGED_MODE)
            CoUninitialize();
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        CoUninitialize();
    }
}

TEST(WindowsOutlook, LeaksNothing)
{
    PimstoreServer server;
    expectNoLeak([&] {
        const auto connection = server.connect();
        const auto items = connection->GetDefaultFolder(OutlookFolder::Calendar)->get_Items();
        const auto item = items->Restrict(u"[Subject] = 'Soon'")->Item(1);
        EXPECT_TRUE(dynamic_cast<platform::IAppointment &>(*item).get_Subject());
        EXPECT_TRUE(item->QueryItem()->get_Oid());
        EXPECT_FALSE(items->Restrict(u"nonsense"));
    });
}
