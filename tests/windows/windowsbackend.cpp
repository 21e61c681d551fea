#include "contracts/backend.h"
#include "contracts/programfolder.h"
#include "windows/calllog.h"

#include "platform/windows/windowsplatform.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <filesystem>

namespace fs = std::filesystem;

/// What the stand-ins call, see standins/calllog.h.
extern "C" __declspec(dllexport) bool takeCall(const char *function, const char *arguments)
{
    if (CallLog::current)
        CallLog::current->calls.push_back(std::string(function) + '(' + arguments + ')');
    return FailingCalls::functions.count(function) > 0;
}

void libraries::useStandIns()
{
    SetDllDirectoryW((contracts::programFolder() / "standins").c_str());
}

void libraries::useNone()
{
    SetDllDirectoryW(nullptr);
}

void libraries::useEmpty(const std::vector<const wchar_t *> &names)
{
    const auto folder = fs::path(contracts::scratchFolder()) / "empty libraries";
    fs::create_directory(folder);
    for (const wchar_t *name : names)
        copy_file(contracts::programFolder() / "standins/empty.dll", folder / name);
    SetDllDirectoryW(folder.c_str());
}

namespace contracts {

std::unique_ptr<platform::Platform> makePlatform()
{
    // A test of what happens without them calls libraries::useNone() after this.
    libraries::useStandIns();
    return std::make_unique<platform::WindowsPlatform>();
}

std::u16string scratchFolder()
{
    static const auto path = fs::temp_directory_path() / ("kestcmd" + std::to_string(GetCurrentProcessId()));
    static const struct Folder
    {
        Folder()
        {
            // Wine soon gives a process's id to another one, and one that was killed may have left its
            // folder.
            fs::remove_all(path);
            EXPECT_TRUE(fs::create_directory(path));
        }
        ~Folder()
        {
            std::error_code ignored;
            fs::remove_all(path, ignored);
        }
    } folder;
    return path.u16string();
}

fs::path programFolder()
{
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return fs::path(program).parent_path();
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
