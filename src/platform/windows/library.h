#pragma once

#include "platform/windows/handles.h"
#include "platform/windows/seams/libraryseam.h"

namespace platform {

/// A library that not every system has, loaded while the object lives. Any thread may call functions that
/// were found.
class Library
{
public:
    /// @p file is looked for where the system has its libraries.
    explicit Library(const wchar_t *file)
        : m_library(libraryseam::load(file))
    {
    }

    bool isLoaded() const { return m_library != nullptr; }

    /// An exported function by its name or ordinal; null if it is missing or nothing is loaded.
    template <typename Function, typename Export>
    Function *find(Export name) const
    {
        // A detour that tells the compiler that the types differ on purpose.
        const auto found = m_library ? libraryseam::find(m_library.get(), name) : nullptr;
        return reinterpret_cast<Function *>(reinterpret_cast<void *>(found));
    }

private:
    UniqueLibrary m_library;
};

} // namespace platform
