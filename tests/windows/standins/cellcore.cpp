#include "windows/standins/calllog.h"

#include <cwchar>
#include <iterator>

// A connection manager that reaches everything by one network, unless the environment variable OFFLINE is
// set.

namespace {

using standins::isToFail;
using standins::logCall;

// As devices have it, and not as the code under test has it.
struct ConnectionInfo
{
    DWORD cbSize;
    DWORD dwParams;
    DWORD dwFlags;
    DWORD dwPriority;
    BOOL bExclusive;
    BOOL bDisabled;
    GUID guidDestNet;
    HWND hWnd;
    UINT uMsg;
    LPARAM lParam;
    ULONG ulMaxCost;
    ULONG ulMinRcvBw;
    ULONG ulMaxConnLatency;
};
static_assert(sizeof(void *) != 4 || sizeof(ConnectionInfo) == 64);

constexpr DWORD connected = 0x10;
constexpr DWORD disconnected = 0x20;
constexpr GUID internet{1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
ULONG_PTR opened = 0;

ULONG_PTR number(HANDLE connection)
{
    return reinterpret_cast<ULONG_PTR>(connection);
}

bool isOffline()
{
    return !standins::environment(L"OFFLINE").empty();
}

} // namespace

extern "C" HRESULT WINAPI ConnMgrMapURL(wchar_t *url, GUID *network, DWORD *index)
{
    logCall("cellcore MapURL", url);
    if (index)
        *index = 0;
    if (isToFail(L"cellcore MapURL"))
        return E_FAIL;
    *network = internet;
    // It may use the text as it likes.
    *url = L'\0';
    return S_OK;
}

extern "C" HRESULT WINAPI ConnMgrEstablishConnectionSync(ConnectionInfo *info, HANDLE *connection,
                                                         DWORD timeout, DWORD *status)
{
    const bool restIsZero = !info->hWnd && !info->uMsg && !info->lParam && !info->ulMaxCost
        && !info->ulMinRcvBw && !info->ulMaxConnLatency;
    wchar_t network[40] = {};
    swprintf(network, std::size(network), L"%08lx...%02x", info->guidDestNet.Data1,
             info->guidDestNet.Data4[7]);
    logCall("cellcore EstablishConnectionSync", info->cbSize == sizeof(*info) ? L"sized" : L"missized",
            info->dwParams, info->dwFlags, info->dwPriority, info->bExclusive, info->bDisabled, network,
            restIsZero ? L"rest 0" : L"rest not 0", timeout);
    // Offline, it leaves a handle behind that has to be released.
    const bool fails = isToFail(L"cellcore EstablishConnectionSync") && !isOffline();
    *connection = fails ? nullptr : reinterpret_cast<HANDLE>(++opened);
    *status = isOffline() ? disconnected : connected;
    return isOffline() || fails ? E_FAIL : S_FALSE; // which is a success
}

extern "C" HRESULT WINAPI ConnMgrConnectionStatus(HANDLE connection, DWORD *status)
{
    logCall("cellcore ConnectionStatus", number(connection));
    *status = isOffline() ? disconnected : connected;
    return isToFail(L"cellcore ConnectionStatus") ? E_FAIL : S_OK;
}

extern "C" HRESULT WINAPI ConnMgrReleaseConnection(HANDLE connection, LONG cache)
{
    logCall("cellcore ReleaseConnection", number(connection), cache);
    return S_OK;
}
