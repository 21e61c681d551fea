#pragma once

#include <memory>

namespace platform {

class Library;

/// A library that is loaded when it is first asked for, and then kept. While it is missing, each asking looks
/// for it again. One thread.
class LateLibrary
{
public:
    /// @p file lives as long as this.
    explicit LateLibrary(const wchar_t *file);
    ~LateLibrary();

    /// The library, which may be missing (Library::isLoaded()).
    const Library &get();

private:
    const wchar_t *const m_file;
    std::unique_ptr<Library> m_library;
};

} // namespace platform
