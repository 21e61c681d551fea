#include "platform/windows/seams/libraryseam.h"

#include <string>

namespace platform::libraryseam {

HMODULE load(const wchar_t *file)
{
    return LoadLibraryExW(file, nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

FARPROC find(HMODULE library, WORD ordinal)
{
    return GetProcAddress(library, MAKEINTRESOURCEA(ordinal));
}

FARPROC find(HMODULE library, const wchar_t *name)
{
    std::string narrow;
    for (; *name; ++name)
        narrow.push_back(static_cast<char>(*name));
    return GetProcAddress(library, narrow.c_str());
}

} // namespace platform::libraryseam
