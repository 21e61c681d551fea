#include "contracts/argumentwriter.h"

#include <windows.h>

#include <filesystem>

// A program that tells how it was started. For the argument "?show" it tells how its window is to be shown.
int wmain(int count, wchar_t **arguments)
{
    STARTUPINFOW start{};
    GetStartupInfoW(&start);
    std::vector<std::string> told;
    for (int i = 0; i < count; ++i) {
        const std::wstring argument = arguments[i];
        told.push_back(argument == L"?show" ? std::to_string(start.wShowWindow)
                                            : std::filesystem::path(argument).u8string());
    }
    contracts::writeArguments(told);
    return 0;
}
