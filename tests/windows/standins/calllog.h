#pragma once

#include <windows.h>

#include <string>

// How the stand-ins for libraries of a device tell the test of calls. Its side is windows/calllog.h.

namespace standins {

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

/// Has the test write down the call "function(first, ...)": arguments are numbers, and texts in UTF-16, of
/// which null is "null". Returns whether the test wants it to fail.
template <typename... Rest, typename First>
bool noteCall(const std::string &function, First first, Rest... rest)
{
    std::string arguments = shown(first);
    ((arguments += ", " + shown(rest)), ...);
    void *const note = reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(nullptr), "takeCall"));
    return reinterpret_cast<bool (*)(const char *, const char *)>(note)(function.c_str(), arguments.c_str());
}

} // namespace standins
