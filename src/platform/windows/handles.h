#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace platform {

/// Closes what it was given with one of the system's calls.
template <auto close>
struct Closer
{
    template <typename Handle>
    void operator()(Handle *handle) const
    {
        close(handle);
    }
};

/// A handle that closes itself; null is none.
template <typename Handle, auto close>
using Unique = std::unique_ptr<std::remove_pointer_t<Handle>, Closer<close>>;

using UniqueHandle = Unique<HANDLE, CloseHandle>;
using UniqueKey = Unique<HKEY, RegCloseKey>;
using UniqueLibrary = Unique<HMODULE, FreeLibrary>;

} // namespace platform
