#pragma once

#include "runoptions.h"

/// Carries out "holm run" without --watch: one run of one widget. Returns holm's exit status.
int runWidget(int &argc, char **argv, const RunOptions &options);
