#pragma once

#include <windows.h>

namespace platform {

/// What the connection manager is asked for, as cellcore.dll takes it (CONNMGR_CONNECTIONINFO).
struct ConnectionInfo
{
    DWORD size = sizeof(ConnectionInfo);
    DWORD parameters = 0;
    DWORD flags = 0;
    DWORD priority = 0;
    BOOL exclusive = FALSE;
    BOOL disabled = FALSE;
    GUID destination{};
    HWND window = nullptr;
    UINT message = 0;
    LPARAM messageParameter = 0;
    ULONG highestCost = 0;
    ULONG lowestBandwidth = 0;
    ULONG highestLatency = 0;
};
static_assert(sizeof(void *) != 4 || sizeof(ConnectionInfo) == 64, "devices know records of this size");

} // namespace platform
