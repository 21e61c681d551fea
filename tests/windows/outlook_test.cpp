#include "windows/calllog.h"
#include "windows/pimstoreserver.h"
#include "windows/resources.h"

#include "platform/windows/outlook/windowsoutlook.h"

#include <gmock/gmock.h>
#include <objbase.h>

using platform::OutlookFolder;
using testing::ElementsAre;

namespace {

std::unique_ptr<platform::IPOutlookApp> connect()
{
    return platform::WindowsOutlook().createApplication();
}

void useOutlook()
{
    const auto connection = connect();
    const auto items = connection->GetDefaultFolder(OutlookFolder::Calendar)->get_Items();
    const auto item = items->Restrict(u"[Subject] = 'Soon'")->Item(1);
    EXPECT_TRUE(dynamic_cast<platform::IAppointment &>(*item).get_Subject());
    EXPECT_TRUE(item->QueryItem()->get_Oid());
    EXPECT_FALSE(items->Restrict(u"nonsense"));
}

} // namespace

TEST(WindowsOutlook, MakesTheCallsOfASession)
{
    const PimstoreServer server;
    CallLog calls;
    auto connection = connect();
    ASSERT_TRUE(connection && connection->Logon(0xFFFFFFFF80000001));
    connection->GetDefaultFolder(OutlookFolder::Contacts)
        ->QueryItem()
        ->SetProps(0, {{platform::folderNotifications, 0, 0, platform::remoteChanges}});
    EXPECT_TRUE(connection->Logoff());
    connection.reset();
    EXPECT_THAT(calls.take(),
                ElementsAre("IClassFactory::CreateInstance(IUnknown)",
                            "IUnknown::QueryInterface(IPOutlookApp)", "IPOutlookApp::Logon(-2147483647)",
                            "IPOutlookApp::GetDefaultFolder(10)", "IFolder::QueryInterface(IItem)",
                            "IItem::SetProps(0, 1, {10010013, 0, 0, 1})", "IPOutlookApp::Logoff()"));
    EXPECT_EQ(server.livingObjects(), 0);
}

TEST(WindowsOutlook, HandsArgumentsOver)
{
    const PimstoreServer server;
    const auto connection = connect();
    const auto items = connection->GetDefaultFolder(OutlookFolder::Tasks)->get_Items();
    CallLog calls;
    items->Sort(u"StartDate", true);
    items->put_IncludeRecurrences(true);
    items->Restrict(u"[DueDate] > 1")->Sort(u"DueDate", false);
    EXPECT_FALSE(items->Item(0));
    const auto item = items->Item(1);
    item->QueryItem()->OpenProperty(platform::OutlookStream::Picture);
    EXPECT_EQ(dynamic_cast<platform::ITask &>(*item).get_Subject(), u"Now");
    connection->GetItemFromOid(-7);
    connection->VariantTimeToSystemTime(1.5);
    EXPECT_THAT(calls.take(),
                ElementsAre("IPOutlookItemCollection::Sort(StartDate, -1)",
                            "IPOutlookItemCollection::put_IncludeRecurrences(-1)",
                            "IPOutlookItemCollection::Restrict([DueDate] > 1)",
                            "IPOutlookItemCollection::Sort(DueDate, 0)", "IPOutlookItemCollection::Item(1)",
                            "ITask::QueryInterface(IAppointment)", "ITask::QueryInterface(ITask)",
                            "ITask::QueryInterface(IItem)", "ITask::get_Subject()",
                            "IPOutlookApp::SysFreeString(Now)", "IPOutlookApp::GetItemFromOid(-7)",
                            "IPOutlookApp::VariantTimeToSystemTime(1.500000)"));
}

TEST(WindowsOutlook, TellsFailures)
{
    EXPECT_FALSE(connect());
    const PimstoreServer server;
    for (const wchar_t *call : {L"IClassFactory::CreateInstance", L"IUnknown::QueryInterface"}) {
        const FailingCalls failing(call);
        EXPECT_FALSE(connect());
    }
    {
        const auto connection = connect();
        const auto items = connection->GetDefaultFolder(OutlookFolder::Calendar)->get_Items();
        const auto item = items->Item(1);
        auto &appointment = dynamic_cast<platform::IAppointment &>(*item);
        const FailingCalls failing(
            L"IPOutlookApp::Logon;IPOutlookApp::Logoff;IPOutlookApp::GetDefaultFolder;"
            L"IPOutlookItemCollection::get_Count;IPOutlookItemCollection::put_IncludeRecurrences;"
            L"IAppointment::QueryInterface;IAppointment::get_IsRecurring;IAppointment::get_Subject;"
            L"IAppointment::get_Start;IPOutlookApp::SystemTimeToVariantTime");
        EXPECT_FALSE(connection->Logon(0));
        EXPECT_FALSE(connection->Logoff());
        EXPECT_FALSE(connection->GetDefaultFolder(OutlookFolder::Calendar));
        EXPECT_FALSE(items->get_Count());
        EXPECT_FALSE(items->put_IncludeRecurrences(true));
        EXPECT_FALSE(items->Item(1));
        EXPECT_FALSE(item->QueryItem());
        EXPECT_FALSE(appointment.get_IsRecurring() || appointment.get_Subject() || appointment.get_Start());
        EXPECT_FALSE(connection->SystemTimeToVariantTime({2009, 1, 0, 1, 0, 0, 0, 0}));
    }
    EXPECT_EQ(server.livingObjects(), 0);
}

TEST(WindowsOutlook, LeavesTheThreadAsItWas)
{
    const PimstoreServer server;
    for (const HRESULT before : {S_OK, RPC_E_CHANGED_MODE}) {
        if (before == RPC_E_CHANGED_MODE) {
            EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        }
        auto connection = connect();
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
    const PimstoreServer server;
    expectNoLeak(useOutlook);
    EXPECT_EQ(server.livingObjects(), 0);
}
