#pragma once

#include "platform/platform.h"

#include <memory>
#include <string>

namespace contracts {

/// A platform whose registry takes changes from outside: those below, by the keys' paths from
/// HKEY_CURRENT_USER on. They count for the platform made last.
std::unique_ptr<platform::Platform> makeRegistryPlatform();

void makeKey(const std::u16string &path);
/// With all that is below it.
void removeKey(const std::u16string &path);
void removeValue(const std::u16string &path, const std::u16string &name);

} // namespace contracts
