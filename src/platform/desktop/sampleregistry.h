#pragma once

namespace platform {

/// What the registry of a new device holds: a registry file, in UTF-8. Among it is what HardwareState reads.
const char *sampleRegistry();

} // namespace platform
