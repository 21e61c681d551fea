#pragma once

#include <QtCore/QStringList>

/// Carries out "holm reg", which shows and changes the registry of a device. @p commandLine is what follows
/// "holm reg". Returns holm's exit status.
int regCommand(const QStringList &commandLine);
