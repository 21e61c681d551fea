#pragma once

#include <windows.h>

#include <shellapi.h>

// Calls that only the headers of Windows CE declare, for a compiler that has those of desktop Windows: it can
// tell then whether the sources for a device are sound, but not link them.

#undef ShellExecuteEx
#undef SHGetSpecialFolderPath

extern "C" {
FARPROC WINAPI GetProcAddressW(HMODULE library, LPCWSTR name);
BOOL WINAPI ShellExecuteEx(SHELLEXECUTEINFOW *info);
BOOL WINAPI SHGetSpecialFolderPath(HWND owner, LPWSTR path, int folder, BOOL create);
}
