#include "contracts/registry.h"

#include "contracts/backend.h"
#include "contracts/programfolder.h"
#include "windows/calllog.h"
#include "windows/resources.h"

#include "platform/registry.h"
#include "platform/windows/library.h"
#include "platform/windows/widetext.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <thread>

using platform::RegistryBytes;
using platform::RegistryRoot;
using platform::wide;
using testing::ElementsAre;

std::unique_ptr<platform::Platform> contracts::makeRegistryPlatform()
{
    auto platform = makePlatform();
    libraries::useNone(); // The stand-in for the shell does not see what is written.
    return platform;
}

void contracts::makeKey(const std::u16string &path)
{
    HKEY key = nullptr;
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, wide(path), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr), 0);
    RegCloseKey(key);
}

void contracts::removeKey(const std::u16string &path)
{
    RegDeleteTreeW(HKEY_CURRENT_USER, wide(path));
}

void contracts::removeValue(const std::u16string &path, const std::u16string &name)
{
    RegDeleteKeyValueW(HKEY_CURRENT_USER, path.empty() ? nullptr : wide(path), wide(name));
}

namespace {

const std::u16string path = u"Software\\kestcmd\\Test";

std::string text(const std::optional<RegistryBytes> &data)
{
    return data ? std::string(data->begin(), data->end()) : "nothing";
}

class RegistryTest : public testing::Test
{
protected:
    explicit RegistryTest(std::unique_ptr<platform::Platform> platform = contracts::makeRegistryPlatform())
        : m_platform(std::move(platform))
    {
        contracts::makeKey(path);
    }
    ~RegistryTest() override { contracts::removeKey(u"Software\\kestcmd"); }

    std::unique_ptr<platform::RegistryNotification> notify(platform::RegistryListener listener)
    {
        return m_platform->registry().notify(RegistryRoot::CurrentUser, path, u"value", std::move(listener));
    }

    const std::unique_ptr<platform::Platform> m_platform;
};

class RegistryOfShellTest : public RegistryTest
{
protected:
    RegistryOfShellTest()
        : RegistryTest(contracts::makePlatform())
    {
    }

    void tell(BYTE *data, UINT size, int times = 1) const
    {
        m_shell.find<void(BYTE *, UINT, int)>(L"tellListeners")(data, size, times);
    }

    const platform::Library m_shell{L"aygshell.dll"};
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
        {R"(valuewriter Software\kestcmd\Test value other)", "other"},
        {R"(reg delete HKCU\Software\kestcmd /f)", "nothing"},
        {R"(reg add HKCU\Software\kestcmd\Test /v value /t REG_BINARY /d 33 /f)", "3"},
    };
    std::filesystem::current_path(contracts::programFolder());
    std::vector<std::string> expected;
    for (const auto &step : steps) {
        expected.push_back(step.note);
        EXPECT_EQ(std::system(step.command), 0) << step.command;
        EXPECT_TRUE(contracts::waitUntil([&] {
            const std::lock_guard<std::mutex> lock(mutex);
            return notes == expected;
        })) << step.command;
    }
}

TEST_F(RegistryOfShellTest, LeavesTellingToTheShell)
{
    CallLog log;
    std::vector<std::string> notes;
    auto first = notify([&](const auto &data) { notes.push_back("first " + text(data)); });
    const auto second =
        m_platform->registry().notify(RegistryRoot::LocalMachine, u"", u"",
                                      [&](const auto &data) { notes.push_back("second " + text(data)); });
    EXPECT_FALSE(m_platform->registry().notify(RegistryRoot::None, path, u"value", [](const auto &) {}));
    {
        const FailingCalls failing({"RegistryNotifyCallback"});
        EXPECT_FALSE(notify([](const auto &) {}));
    }
    BYTE data[] = "abc";
    tell(data, 2);
    tell(data, 0);
    first.reset();
    tell(nullptr, 0);
    EXPECT_THAT(notes, ElementsAre("first ab", "second ab", "first ", "second ", "second nothing"));
    EXPECT_THAT(log.take(),
                ElementsAre("RegistryNotifyCallback(2147483649, Software\\kestcmd\\Test, value, 0)",
                            "RegistryNotifyCallback(2147483650, , , 0)",
                            "RegistryNotifyCallback(2147483649, Software\\kestcmd\\Test, value, 0)",
                            "RegistryCloseNotification(1)"));
}

TEST_F(RegistryOfShellTest, EndsWhileTheShellTells)
{
    std::atomic<bool> isEnding(false);
    std::thread teller([&] {
        BYTE data[] = "a";
        while (!isEnding)
            tell(data, 1, 100);
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
}

TEST_F(RegistryOfShellTest, KeepsNothing)
{
    expectNoLeak([&] { notify([](const auto &) {}); });
}
