#include "platform/windows/seams/moduleseam.h"

namespace platform::moduleseam {

HINSTANCE ownModule()
{
    static const wchar_t inside = L'\0';
    HINSTANCE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       &inside, &module);
    return module;
}

} // namespace platform::moduleseam
