#include "contracts/connections.h"

#include <windows.h>

void contracts::setOnline(platform::Platform &, bool isOnline)
{
    SetEnvironmentVariableW(L"OFFLINE", isOnline ? nullptr : L"yes");
}
