#pragma once

#include <QtCore/QStringList>

// The commands that show and change the state of a device's hardware. Each takes what follows its name on the
// command line and returns holm's exit status.

/// Carries out "holm radio".
int radioCommand(const QStringList &commandLine);

/// Carries out "holm sound".
int soundCommand(const QStringList &commandLine);

/// Carries out "holm network".
int networkCommand(const QStringList &commandLine);
