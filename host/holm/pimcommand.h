#pragma once

#include <QtCore/QStringList>

/// Carries out "holm pim", which takes appointments, tasks and contacts into a device. @p commandLine is what
/// follows "holm pim". Returns holm's exit status.
int pimCommand(const QStringList &commandLine);
