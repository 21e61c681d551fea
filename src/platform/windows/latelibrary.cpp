#include "platform/windows/latelibrary.h"

#include "platform/windows/library.h"

namespace platform {

LateLibrary::LateLibrary(const wchar_t *file)
    : m_file(file)
{
}

LateLibrary::~LateLibrary() = default;

const Library &LateLibrary::get()
{
    if (!m_library || !m_library->isLoaded())
        m_library = std::make_unique<Library>(m_file);
    return *m_library;
}

} // namespace platform
