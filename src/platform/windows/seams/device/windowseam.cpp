#include "platform/windows/seams/windowseam.h"

#include "platform/windows/handles.h"

namespace platform::windowseam {

DWORD programFile(DWORD processId, wchar_t *path, DWORD capacity)
{
    const UniqueHandle process(OpenProcess(0, FALSE, processId));
    // The one system that takes a process for a module.
    return process ? GetModuleFileNameW(static_cast<HMODULE>(process.get()), path, capacity) : 0;
}

bool isMinimized(HWND)
{
    return false;
}

} // namespace platform::windowseam
