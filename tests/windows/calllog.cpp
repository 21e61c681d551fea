#include "windows/calllog.h"

#include "contracts/backend.h"
#include "contracts/programfolder.h"

#include "platform/windows/widetext.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <filesystem>
#include <fstream>

namespace {

std::filesystem::path scratch(const wchar_t *name)
{
    return std::filesystem::path(contracts::scratchFolder()) / name;
}

} // namespace

CallLog::CallLog()
{
    const auto path = scratch(L"calls.log");
    std::filesystem::remove(path);
    SetEnvironmentVariableW(L"CALL_LOG", path.c_str());
}

CallLog::~CallLog()
{
    SetEnvironmentVariableW(L"CALL_LOG", nullptr);
}

std::vector<std::string> CallLog::take()
{
    std::ifstream file(scratch(L"calls.log"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(m_taken));
    m_taken += lines.size();
    return lines;
}

FailingCalls::FailingCalls(const wchar_t *functions)
{
    SetEnvironmentVariableW(L"FAILING_CALLS", functions);
}

FailingCalls::~FailingCalls()
{
    SetEnvironmentVariableW(L"FAILING_CALLS", nullptr);
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
    const auto folder = scratch(L"empty libraries");
    std::filesystem::create_directory(folder);
    for (const wchar_t *name : names)
        EXPECT_TRUE(CopyFileW((contracts::programFolder() / "standins/empty.dll").c_str(),
                              (folder / name).c_str(), FALSE));
    SetDllDirectoryW(folder.c_str());
}
