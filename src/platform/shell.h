#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Keeps the process handle of a started program open (ShellExecuteEx, fMask).
constexpr std::uint32_t maskNoCloseProcess = 0x40;

/// Shows the program's window at its own size and place (ShellExecuteEx, nShow).
constexpr int showNormally = 5;

/// The special folders in use (SHGetSpecialFolderPath, CSIDL numbers).
enum class SpecialFolder {
    Programs = 0x02,
    ProgramFiles = 0x26,
};

/// What the shell is to start: the members of SHELLEXECUTEINFO that differ from zero.
struct ShellExecution
{
    std::uint32_t mask = 0;
    std::u16string file;
    std::optional<std::u16string> parameters;
    std::optional<std::u16string> directory;
    int show = 0;
};

/// What a folder holds. A link is what it leads to.
struct FolderEntry
{
    std::u16string_view name; ///< valid during the call that hands it over
    bool isFolder = false; ///< everything else counts as a file
    bool isHidden = false;
};

/// The shell: starting things and finding folders. GUI thread only.
class Shell
{
public:
    virtual ~Shell() = default;

    /// Starts a program, or opens a document or address with the program that is associated with
    /// it (ShellExecuteEx), and does not wait for it. False if nothing was started.
    virtual bool execute(const ShellExecution &execution) = 0;

    /// The absolute path of a special folder on the device, as exists(), execute() and localPath() take it,
    /// without a closing separator; nothing if the system has no such folder. With @p create a missing
    /// folder is made (SHGetSpecialFolderPath).
    virtual std::optional<std::u16string> specialFolder(SpecialFolder folder, bool create) = 0;

    /// Whether a file or folder of that absolute path exists on the device.
    virtual bool exists(const std::u16string &path) = 0;

    /// Where file functions that know nothing of the device find @p path: the path itself, unless the
    /// device is a simulated one that keeps its folders elsewhere.
    virtual std::u16string localPath(const std::u16string &path) = 0;

    /// Calls @p take for each entry of a folder but "." and "..", in no certain order (FindFirstFile,
    /// FindNextFile). @p directory is as localPath() gives it. A folder that does not exist, or may not be
    /// read, has no entries. Those whose names are no text are left out.
    virtual void listFolder(const std::u16string &directory,
                            const std::function<void(const FolderEntry &)> &take) = 0;
};

} // namespace platform
