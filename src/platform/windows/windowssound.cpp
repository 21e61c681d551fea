#include "platform/windows/windowssound.h"

#include "platform/windows/library.h"

namespace platform {

namespace {

using GetSound = HRESULT WINAPI(DWORD event, SoundRecord *record);
using SetSound = HRESULT WINAPI(DWORD event, const SoundRecord *record, DWORD flags);

constexpr WORD setSound = 389;
constexpr WORD getSound = 390;

} // namespace

std::int32_t WindowsSound::get(std::uint32_t event, SoundRecord &record)
{
    const auto get = m_library.get().find<GetSound>(getSound);
    if (!get)
        return E_NOTIMPL;
    SoundRecord result;
    const HRESULT status = get(event, &result);
    if (SUCCEEDED(status)) {
        result.pathName.back() = u'\0';
        result.displayName.back() = u'\0';
        record = result;
    }
    return status;
}

std::int32_t WindowsSound::set(std::uint32_t event, const SoundRecord &record, std::uint32_t flags)
{
    const auto set = m_library.get().find<SetSound>(setSound);
    return set ? set(event, &record, flags) : E_NOTIMPL;
}

} // namespace platform
