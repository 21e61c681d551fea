#include "platform/windows/seams/windowseam.h"

#include "platform/windows/handles.h"

#include <algorithm>
#include <vector>

namespace platform::windowseam {

DWORD programFile(DWORD processId, wchar_t *path, DWORD capacity)
{
    // A path that does not fit is an error here, and not cut.
    std::vector<wchar_t> whole(32768);
    auto length = static_cast<DWORD>(whole.size());
    const UniqueHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    if (!process || capacity == 0 || !QueryFullProcessImageNameW(process.get(), 0, whole.data(), &length))
        return 0;
    length = std::min(length, capacity - 1);
    std::copy_n(whole.data(), length, path);
    path[length] = L'\0';
    return length;
}

bool isMinimized(HWND window)
{
    return IsIconic(window);
}

} // namespace platform::windowseam
