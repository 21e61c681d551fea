#include "platform/windows/windowsshell.h"

#include "platform/windows/handles.h"
#include "platform/windows/seams/shellseam.h"
#include "platform/windows/widetext.h"

namespace platform {

static_assert(sizeof(void *) != 4 || sizeof(SHELLEXECUTEINFOW) == 60, "devices know records of this size");

namespace {

using UniqueFind = Unique<HANDLE, FindClose>;

const wchar_t *wideOrNull(const std::optional<std::u16string> &text)
{
    return text ? wide(*text) : nullptr;
}

/// Nothing if the system would take it for another one.
std::optional<std::u16string> usablePath(const std::u16string &path)
{
    if (path.size() >= MAX_PATH || path.find(u'\0') != std::u16string::npos)
        return std::nullopt;
    return nativePath(path);
}

} // namespace

bool WindowsShell::execute(const ShellExecution &execution)
{
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = execution.mask;
    info.lpFile = wide(execution.file);
    info.lpParameters = wideOrNull(execution.parameters);
    info.lpDirectory = wideOrNull(execution.directory);
    info.nShow = execution.show;
    // Who asks for the process handle wants it open for good: it keeps the process's id from being given
    // anew.
    return shellseam::execute(info);
}

std::optional<std::u16string> WindowsShell::specialFolder(SpecialFolder folder, bool create)
{
    wchar_t path[MAX_PATH] = {};
    if (!shellseam::specialFolderPath(path, static_cast<int>(folder), create))
        return std::nullopt;
    std::u16string result = utf16(path);
    while (!result.empty() && result.back() == u'\\')
        result.pop_back();
    return result.empty() ? std::nullopt : std::make_optional(result);
}

bool WindowsShell::exists(const std::u16string &path)
{
    const auto usable = usablePath(path);
    return usable && GetFileAttributesW(wide(*usable)) != INVALID_FILE_ATTRIBUTES;
}

std::u16string WindowsShell::localPath(const std::u16string &path)
{
    return path;
}

void WindowsShell::listFolder(const std::u16string &directory,
                              const std::function<void(const FolderEntry &)> &take)
{
    auto pattern = usablePath(directory);
    if (!pattern || pattern->empty())
        return;
    // With two separators, the root of a device would be the name of a computer.
    *pattern += pattern->back() == u'\\' ? u"*" : u"\\*";
    WIN32_FIND_DATAW found{};
    const HANDLE first = FindFirstFileW(wide(*pattern), &found);
    if (first == INVALID_HANDLE_VALUE)
        return;
    const UniqueFind search(first);
    do {
        const std::u16string name = utf16(found.cFileName);
        if (name != u"." && name != u".." && isText(name))
            take({name, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
                  (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0});
    } while (FindNextFileW(search.get(), &found));
}

} // namespace platform
