#pragma once

#include <QtCore/QStringList>

/// Carries out "holm s2p": plays the part of the music player S2P on a simulated device. @p commandLine is
/// what follows "holm s2p"; Qt gets @p argc and @p argv. Returns holm's exit status.
int s2pCommand(int &argc, char **argv, const QStringList &commandLine);
