#include "platform/windows/seams/shellseam.h"

#include <shlobj.h>

namespace platform::shellseam {

bool execute(SHELLEXECUTEINFOW &info)
{
    return ShellExecuteExW(&info);
}

bool specialFolderPath(wchar_t (&path)[MAX_PATH], int folder, bool create)
{
    return SHGetSpecialFolderPathW(nullptr, path, folder, create);
}

} // namespace platform::shellseam
