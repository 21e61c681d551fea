#pragma once

#include <windows.h>

/// Opening keys. Windows CE knows no access rights and wants 0; desktop Windows gives what is asked for.
namespace platform::registryseam {

/// Opens a key for reading and, if the system lets us, writing (RegOpenKeyExW). Without @p subkey it is the
/// root itself. Returns the system's error code.
LONG openKey(HKEY root, const wchar_t *subkey, HKEY *key);

/// Opens a key for reading, and has @p event set once when a value of it changes or a key directly below it
/// comes or goes, while the calling thread runs. Closing the key sets it as well. Without @p subkey it is the
/// root itself. Returns the system's error code. On Windows CE, where the shell tells of changes, this always
/// fails.
LONG openWatched(HKEY root, const wchar_t *subkey, HANDLE event, HKEY *key);

} // namespace platform::registryseam
