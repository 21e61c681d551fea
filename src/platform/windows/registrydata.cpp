#include "platform/windows/registrydata.h"

#include "platform/windows/widetext.h"

namespace platform {

std::optional<RegistryData> readData(HKEY key, const std::u16string &name, std::uint32_t limit)
{
    DWORD type = 0;
    DWORD size = 0;
    LONG status = RegQueryValueExW(key, wide(name), nullptr, &type, nullptr, &size);
    // Another may write more between asking for the size and reading.
    while (status == ERROR_SUCCESS && size <= limit) {
        RegistryBytes bytes(size);
        status = RegQueryValueExW(key, wide(name), nullptr, &type, bytes.data(), &size);
        if (status == ERROR_SUCCESS && size <= bytes.size()) {
            bytes.resize(size);
            return RegistryData{type, std::move(bytes)};
        }
        if (status == ERROR_MORE_DATA)
            status = ERROR_SUCCESS;
    }
    return std::nullopt;
}

} // namespace platform
