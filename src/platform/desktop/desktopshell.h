#pragma once

#include "platform/desktop/devicefolder.h"
#include "platform/shell.h"

#include <QtCore/QString>

namespace platform {

/// The shell of the simulated device.
///
/// Starts executable files detached, with their parameters split as Windows splits them; a ".lnk"
/// starts its target; anything else that exists, and addresses such as "http://...", goes to
/// the desktop's opener, "xdg-open". A bare name is looked for in the device's Windows folder and then on the
/// machine's search path.
class DesktopShell : public Shell
{
public:
    explicit DesktopShell(const DeviceFolder &device);

    bool execute(const ShellExecution &execution) override;
    std::optional<std::u16string> specialFolder(SpecialFolder folder, bool create) override;
    bool exists(const std::u16string &path) override;
    std::u16string localPath(const std::u16string &path) override;
    void listFolder(const std::u16string &directory,
                    const std::function<void(const FolderEntry &)> &take) override;

private:
    bool start(const QString &file, const QString &parameters, const QString &directory, int linksLeft) const;
    bool startShortcut(const QString &shortcut, int linksLeft) const;
    QString find(const QString &file) const;

    const DeviceFolder m_device;
};

} // namespace platform
