#include "platform/windows/seams/registryseam.h"

namespace platform::registryseam {

LONG openKey(HKEY root, const wchar_t *subkey, HKEY *key)
{
    const LONG status = RegOpenKeyExW(root, subkey, 0, KEY_QUERY_VALUE | KEY_SET_VALUE, key);
    return status == ERROR_ACCESS_DENIED ? RegOpenKeyExW(root, subkey, 0, KEY_QUERY_VALUE, key) : status;
}

LONG openWatched(HKEY root, const wchar_t *subkey, HANDLE event, HKEY *key)
{
    constexpr REGSAM access = KEY_QUERY_VALUE | KEY_NOTIFY;
    // Opening a root itself gives the handle that all have and nobody closes: what watches it would stay.
    LONG status = subkey ? RegOpenKeyExW(root, subkey, 0, access, key)
                         : RegCreateKeyExW(root, L"", 0, nullptr, 0, access, nullptr, key, nullptr);
    if (status != ERROR_SUCCESS)
        return status;
    status = RegNotifyChangeKeyValue(*key, FALSE, REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET, event,
                                     TRUE);
    if (status != ERROR_SUCCESS)
        RegCloseKey(*key);
    return status;
}

} // namespace platform::registryseam
