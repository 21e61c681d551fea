#include "platform/registry.h"

#include "contracts/backend.h"
#include "contracts/registry.h"
#include "windows/calllog.h"
#include "windows/resources.h"

#include "platform/windows/handles.h"
#include "platform/windows/library.h"

#include <gmock/gmock.h>

#include <atomic>
#include <mutex>
#include <thread>

using platform::RegistryBytes;
using platform::RegistryRoot;
using testing::ElementsAre;

namespace {

const std::u16string path = u"Software\\kestcmd\\Test";

std::string text(const std::optional<RegistryBytes> &data)
{
    return data ? std::string(data->begin(), data->end()) : "nothing";
}

/// Runs a program, which may stand beside this one, and returns its exit code.
DWORD run(const char *command)
{
    STARTUPINFOA start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    std::string line = command; // which the call may write to
    EXPECT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr,
                               nullptr, &start, &process));
    CloseHandle(process.hThread);
    const platform::UniqueHandle handle(process.hProcess);
    DWORD exitCode = 1;
    EXPECT_EQ(WaitForSingleObject(handle.get(), INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(GetExitCodeProcess(handle.get(), &exitCode));
    return exitCode;
}

class RegistryTest : public testing::Test
{
protected:
    RegistryTest() { contracts::makeKey(path); }
    ~RegistryTest() override { contracts::removeKey(u"Software\\kestcmd"); }

    std::unique_ptr<platform::RegistryNotification> notify(platform::RegistryListener listener)
    {
        return m_platform->registry().notify(RegistryRoot::CurrentUser, path, u"value", std::move(listener));
    }

    void useShell() { m_platform = contracts::makePlatform(); }

    std::unique_ptr<platform::Platform> m_platform = contracts::makeRegistryPlatform();
};

/// The stand-in for the shell as it tells changes.
class Shell
{
public:
    void tell(BYTE *data, UINT size, int times = 1) const { m_tell(data, size, times); }

private:
    const platform::Library m_library{L"aygshell.dll"};
    void (*const m_tell)(BYTE *, UINT, int) = m_library.find<void(BYTE *, UINT, int)>(L"tellListeners");
};

} // namespace

TEST_F(RegistryTest, TellsWhatOtherProgramsChange)
{
    std::mutex mutex;
    std::vector<std::string> notes;
    const auto notification = notify([&](const std::optional<RegistryBytes> &data) {
        const std::lock_guard<std::mutex> lock(mutex);
        notes.push_back(text(data));
    });
    const struct
    {
        const char *command;
        std::string note;
    } steps[] = {
        {R"(reg add HKCU\Software\kestcmd\Test /v value /t REG_DWORD /d 16909060 /f)", "\4\3\2\1"},
        {R"(reg add HKCU\Software\kestcmd\test /v VALUE /t REG_SZ /d a /f)", {'a', 0, 0, 0}},
        {R"(reg delete HKCU\Software\kestcmd\Test /v value /f)", "nothing"},
        {R"(reg add HKCU\Software\kestcmd\Test /v value /t REG_BINARY /d 3132 /f)", "12"},
        {R"(valuewriter.exe Software\kestcmd\Test value other)", "other"},
        {R"(reg delete HKCU\Software\kestcmd /f)", "nothing"},
        {R"(reg add HKCU\Software\kestcmd\Test /v value /t REG_BINARY /d 33 /f)", "3"},
    };
    std::vector<std::string> expected;
    for (const auto &step : steps) {
        expected.push_back(step.note);
        EXPECT_EQ(run(step.command), 0U) << step.command;
        EXPECT_TRUE(contracts::waitUntil([&] {
            const std::lock_guard<std::mutex> lock(mutex);
            return notes == expected;
        })) << step.command;
    }
}

TEST_F(RegistryTest, LeavesTellingToTheShell)
{
    useShell();
    const Shell shell;
    CallLog log;
    std::vector<std::string> notes;
    auto first = notify([&](const auto &data) { notes.push_back("first " + text(data)); });
    const auto second =
        m_platform->registry().notify(RegistryRoot::LocalMachine, u"", u"",
                                      [&](const auto &data) { notes.push_back("second " + text(data)); });
    EXPECT_FALSE(m_platform->registry().notify(RegistryRoot::None, path, u"value", [](const auto &) {}));
    {
        const FailingCalls failing(L"RegistryNotifyCallback");
        EXPECT_FALSE(notify([](const auto &) {}));
    }
    BYTE data[] = "abc";
    shell.tell(data, 2);
    shell.tell(data, 0);
    first.reset();
    shell.tell(nullptr, 0);
    EXPECT_THAT(notes, ElementsAre("first ab", "second ab", "first ", "second ", "second nothing"));
    EXPECT_THAT(log.take(),
                ElementsAre("RegistryNotifyCallback(2147483649, Software\\kestcmd\\Test, value, 0)",
                            "RegistryNotifyCallback(2147483650, , , 0)",
                            "RegistryNotifyCallback(2147483649, Software\\kestcmd\\Test, value, 0)",
                            "RegistryCloseNotification(1)"));
}

TEST_F(RegistryTest, EndsWhileTheShellTells)
{
    useShell();
    const Shell shell;
    std::atomic<bool> isEnding(false);
    std::thread teller([&] {
        BYTE data[] = "a";
        while (!isEnding)
            shell.tell(data, 1, 100);
    });
    for (int i = 0; i < 20; ++i) {
        std::atomic<bool> isCalled(false);
        std::atomic<bool> isThere(true);
        auto notification = notify([&](const auto &) {
            isCalled = true;
            Sleep(10);
            EXPECT_TRUE(isThere);
        });
        ASSERT_TRUE(notification);
        while (!isCalled)
            SwitchToThread();
        notification.reset();
        isThere = false;
    }
    isEnding = true;
    teller.join();
}

TEST_F(RegistryTest, KeepsNothing)
{
    expectNoLeak([&] {
        const auto key = m_platform->registry().open(RegistryRoot::CurrentUser, path).key;
        key->write(u"value", platform::RegistryType::binary, {1, 2}, 2);
        key->read(u"value", key->info(u"value")->size);
        m_platform->registry().open(RegistryRoot::CurrentUser, u"None");
    });
    constexpr int threads = 2000; // which take 2 ms each
    expectNoLeak([&] { notify([](const auto &) {}); }, threads);
    useShell();
    const Shell shell;
    expectNoLeak([&] { notify([](const auto &) {}); });
}
