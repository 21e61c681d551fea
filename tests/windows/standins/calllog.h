#pragma once

#include <windows.h>

#include <string>

// What the stand-ins for libraries of a device share: they write down how they are called, and fail on
// demand. The test's side of it is windows/calllog.h.

namespace standins {

inline std::wstring environment(const wchar_t *name)
{
    std::wstring value(32767, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

inline std::string shown(const wchar_t *text)
{
    char result[1000] = "null";
    if (text)
        WideCharToMultiByte(CP_UTF8, 0, text, -1, result, sizeof(result), nullptr, nullptr);
    return result;
}

inline std::string shown(long long number)
{
    return std::to_string(number);
}

/// Appends a line to the file that the environment variable CALL_LOG names; without one it does nothing.
inline void logCall(const std::string &line)
{
    const std::wstring path = environment(L"CALL_LOG");
    if (path.empty())
        return;
    const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const std::string bytes = line + '\n';
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

/// The same for "function(first, ...)": arguments are numbers, and texts in UTF-16, of which null is "null".
template <typename... Rest, typename First>
void logCall(const std::string &function, First first, Rest... rest)
{
    std::string line = function + '(' + shown(first);
    ((line += ", " + shown(rest)), ...);
    logCall(line + ')');
}

/// Whether the environment variable FAILING_CALLS, a list such as "ossvcs 276;ossvcs 273", names the
/// function.
inline bool isToFail(const wchar_t *function)
{
    return (L';' + environment(L"FAILING_CALLS") + L';').find(std::wstring(L";") + function + L';')
        != std::wstring::npos;
}

} // namespace standins
