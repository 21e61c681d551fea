#include "platform/windows/seams/registryseam.h"

namespace platform::registryseam {

LONG openKey(HKEY root, const wchar_t *subkey, HKEY *key)
{
    return RegOpenKeyExW(root, subkey, 0, 0, key);
}

LONG openWatched(HKEY, const wchar_t *, HANDLE, HKEY *)
{
    return ERROR_NOT_SUPPORTED;
}

} // namespace platform::registryseam
