#pragma once

#include <windows.h>

#include <shellapi.h>

/// The shell's calls, whose names end with the kind of their texts on desktop Windows only.
namespace platform::shellseam {

/// ShellExecuteEx
bool execute(SHELLEXECUTEINFOW &info);

/// SHGetSpecialFolderPath, with a CSIDL number.
bool specialFolderPath(wchar_t (&path)[MAX_PATH], int folder, bool create);

} // namespace platform::shellseam
