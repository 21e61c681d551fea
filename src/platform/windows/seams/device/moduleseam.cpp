#include "platform/windows/seams/moduleseam.h"

namespace {
HINSTANCE loadedAs = nullptr;
} // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void *)
{
    if (reason == DLL_PROCESS_ATTACH)
        loadedAs = library;
    return TRUE;
}

namespace platform::moduleseam {

HINSTANCE ownModule()
{
    return loadedAs ? loadedAs : GetModuleHandleW(nullptr);
}

} // namespace platform::moduleseam
