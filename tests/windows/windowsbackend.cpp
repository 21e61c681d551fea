#include "contracts/backend.h"
#include "contracts/programfolder.h"

#include "platform/windows/widetext.h"
#include "platform/windows/windowsplatform.h"
#include "windows/calllog.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <filesystem>

namespace contracts {

namespace {
class TemporaryFolder
{
public:
    TemporaryFolder()
        : m_path(std::filesystem::temp_directory_path() / ("kestcmd" + std::to_string(GetCurrentProcessId())))
    {
        // Wine soon gives a process's id to another one: a program that was killed may have left its folder.
        std::filesystem::remove_all(m_path);
        EXPECT_TRUE(std::filesystem::create_directory(m_path));
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    std::u16string path() const { return platform::utf16(m_path.native()); }

private:
    std::filesystem::path m_path;
};
} // namespace

std::unique_ptr<platform::Platform> makePlatform()
{
    // A test of what happens without them calls libraries::useNone() after this.
    libraries::useStandIns();
    return std::make_unique<platform::WindowsPlatform>();
}

std::u16string scratchFolder()
{
    static const TemporaryFolder folder;
    return folder.path();
}

std::filesystem::path programFolder()
{
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).parent_path();
}

void processEvents()
{
    MSG message{};
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace contracts
