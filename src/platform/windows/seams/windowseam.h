#pragma once

#include <windows.h>

/// What windows and their processes tell in another way on Windows CE than on desktop Windows.
namespace platform::windowseam {

/// The absolute path of a process's program, cut so that it and its closing null fit into @p capacity units.
/// Returns its length; 0 if it cannot be found out.
DWORD programFile(DWORD processId, wchar_t *path, DWORD capacity);

/// Whether the window is reduced to a button or title. On Windows CE none ever is.
bool isMinimized(HWND window);

} // namespace platform::windowseam
