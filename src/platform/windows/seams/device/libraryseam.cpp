#include "platform/windows/seams/libraryseam.h"

namespace platform::libraryseam {

HMODULE load(const wchar_t *file)
{
    return LoadLibraryW(file);
}

FARPROC find(HMODULE library, WORD ordinal)
{
    return GetProcAddressW(library, MAKEINTRESOURCEW(ordinal));
}

FARPROC find(HMODULE library, const wchar_t *name)
{
    return GetProcAddressW(library, name);
}

} // namespace platform::libraryseam
