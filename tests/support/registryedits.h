#pragma once

#include <platform/desktop/regfile.h>

namespace platform {

inline bool operator==(const RegistryEdit &a, const RegistryEdit &b)
{
    return a.action == b.action && a.key.root == b.key.root && a.key.path == b.key.path
        && a.value.name == b.value.name && a.value.type == b.value.type && a.value.data == b.value.data;
}

} // namespace platform
