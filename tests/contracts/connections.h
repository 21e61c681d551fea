#pragma once

#include "platform/platform.h"

namespace contracts {

/// Gives a device, which is online at first, its network or takes it away.
void setOnline(platform::Platform &device, bool isOnline);

} // namespace contracts
