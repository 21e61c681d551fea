#pragma once

#include "platform/shell.h"

#include <QtCore/QString>

namespace platform {

/// Shell::listFolder() for the machine's own folders. Names that begin with a dot are hidden. Any thread.
void listLocalFolder(const QString &directory, const std::function<void(const FolderEntry &)> &take);

} // namespace platform
