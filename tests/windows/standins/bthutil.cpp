#include "windows/standins/calllog.h"

extern "C" int WINAPI setMode(DWORD mode)
{
    standins::logCall("BTHUTIL 1", mode);
    if (standins::isToFail(L"BTHUTIL 1"))
        return ERROR_GEN_FAILURE;
    const HMODULE wireless = GetModuleHandleW(L"ossvcs.dll");
    void *const set = wireless ? reinterpret_cast<void *>(GetProcAddress(wireless, "setBluetooth")) : nullptr;
    if (set)
        reinterpret_cast<void (*)(DWORD)>(set)(mode);
    return 0;
}
