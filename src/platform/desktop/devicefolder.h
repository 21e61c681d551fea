#pragma once

#include <QtCore/QString>

namespace platform {

/// The folder that holds a simulated device, and the device's own paths inside it.
class DeviceFolder
{
public:
    /// The name of the environment variable that names the folder in force.
    static const char *const environmentVariable;

    /// The folder that $HOLM_DEVICE names, else "holm/device" in the user's data directory.
    static DeviceFolder current();

    explicit DeviceFolder(const QString &path);

    /// The folder's absolute path, without a closing separator.
    QString path() const;

    /// Makes the folder if it is missing, and fills a new one with sample data. What is there
    /// already is left alone. Returns an empty text, or what went wrong in plain words.
    QString create() const;

    /// The file on this machine for a path as the device writes it, separators either way. A path
    /// below one of the device's own folders ("\Windows\...") is found inside this folder, without
    /// regard to letter case as on the device; any other path is the machine's own.
    QString localPath(const QString &devicePath) const;

private:
    QString m_path;
};

} // namespace platform
