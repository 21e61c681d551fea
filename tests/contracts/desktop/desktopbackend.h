#pragma once

#include "platform/desktop/devicefolder.h"

namespace contracts {

/// The device of the platform that makePlatform() made last.
platform::DeviceFolder latestDevice();

} // namespace contracts
