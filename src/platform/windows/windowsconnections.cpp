#include "platform/windows/windowsconnections.h"

#include "platform/windows/connectioninfo.h"
#include "platform/windows/library.h"
#include "platform/windows/widetext.h"

#include <algorithm>
#include <cstring>

namespace platform {

static_assert(sizeof(GUID) == sizeof(NetworkId));

namespace {

using MapUrl = HRESULT WINAPI(wchar_t *url, GUID *network, DWORD *index);
using Establish = HRESULT WINAPI(ConnectionInfo *info, HANDLE *connection, DWORD timeout, DWORD *status);
using Status = HRESULT WINAPI(HANDLE connection, DWORD *status);
using Release = HRESULT WINAPI(HANDLE connection, LONG cache);

Library connectionManager()
{
    return Library(L"cellcore.dll");
}

ConnectionInfo infoFor(const ConnectionRequest &request)
{
    ConnectionInfo info;
    info.parameters = request.parameters;
    info.flags = request.flags;
    info.priority = request.priority;
    info.exclusive = request.exclusive;
    info.disabled = request.disabled;
    std::memcpy(&info.destination, request.destination.data(), sizeof(info.destination));
    return info;
}

DWORD inMilliseconds(std::chrono::milliseconds timeout)
{
    constexpr std::chrono::milliseconds::rep longest = INFINITE - 1;
    return static_cast<DWORD>(std::clamp<std::chrono::milliseconds::rep>(timeout.count(), 0, longest));
}

class ManagedConnection : public DataConnection
{
public:
    /// Takes over the handle, and the library that it is from.
    ManagedConnection(Library &&library, HANDLE connection)
        : m_library(std::move(library))
        , m_connection(connection)
    {
    }
    ~ManagedConnection() override
    {
        const auto release = m_library.find<Release>(L"ConnMgrReleaseConnection");
        if (release && m_connection)
            release(m_connection, 0);
    }
    ManagedConnection(const ManagedConnection &) = delete;
    ManagedConnection &operator=(const ManagedConnection &) = delete;

    std::optional<std::uint32_t> status() override
    {
        const auto query = m_library.find<Status>(L"ConnMgrConnectionStatus");
        DWORD status = 0;
        return query && SUCCEEDED(query(m_connection, &status)) ? std::make_optional(status) : std::nullopt;
    }

private:
    const Library m_library;
    const HANDLE m_connection;
};

class PermanentConnection : public DataConnection
{
public:
    std::optional<std::uint32_t> status() override { return connectionConnected; }
};

} // namespace

std::optional<NetworkId> WindowsConnections::networkFor(const std::u16string &url)
{
    const Library library = connectionManager();
    const auto map = library.find<MapUrl>(L"ConnMgrMapURL");
    std::u16string address = url; // which the call may write to
    GUID network{};
    DWORD index = 0; // the first of several that lead there
    if (!map || FAILED(map(reinterpret_cast<wchar_t *>(address.data()), &network, &index)))
        return std::nullopt;
    NetworkId id;
    std::memcpy(id.data(), &network, id.size());
    return id;
}

std::unique_ptr<DataConnection> WindowsConnections::connect(const ConnectionRequest &request,
                                                            std::chrono::milliseconds timeout)
{
    Library library = connectionManager();
    if (!library.isLoaded())
        return std::make_unique<PermanentConnection>();
    const auto establish = library.find<Establish>(L"ConnMgrEstablishConnectionSync");
    if (!establish)
        return nullptr;
    ConnectionInfo info = infoFor(request);
    HANDLE handle = nullptr;
    DWORD status = 0;
    const HRESULT result = establish(&info, &handle, inMilliseconds(timeout), &status);
    // A handle that came with a failure is given back by the same way.
    auto connection = std::make_unique<ManagedConnection>(std::move(library), handle);
    return SUCCEEDED(result) ? std::move(connection) : nullptr;
}

} // namespace platform
