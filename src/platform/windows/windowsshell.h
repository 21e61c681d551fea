#pragma once

#include "platform/shell.h"

namespace platform {

/// The system's own shell. The process handle that maskNoCloseProcess asks for is never closed. Paths as long
/// as MAX_PATH or longer are those of nothing.
class WindowsShell : public Shell
{
public:
    bool execute(const ShellExecution &execution) override;
    std::optional<std::u16string> specialFolder(SpecialFolder folder, bool create) override;
    bool exists(const std::u16string &path) override;
    std::u16string localPath(const std::u16string &path) override;
    void listFolder(const std::u16string &directory,
                    const std::function<void(const FolderEntry &)> &take) override;
};

} // namespace platform
