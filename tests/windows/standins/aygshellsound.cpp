#include "windows/standins/calllog.h"

// The sound setting of a device that is new each time the library is loaded.

namespace {

// As devices have it, and not as the code under test has it.
struct Sound
{
    wchar_t pathName[260];
    wchar_t displayName[260];
    LONG type;
};
static_assert(sizeof(Sound) == 1044);

constexpr DWORD allSounds = 0;
constexpr HRESULT unknownEvent = -1;
Sound record{};

} // namespace

extern "C" HRESULT WINAPI getSound(DWORD event, Sound *result)
{
    standins::logCall("aygshell 390", event);
    // One that fails may have written already.
    *result = record;
    return event == allSounds && !standins::isToFail(L"aygshell 390") ? S_OK : unknownEvent;
}

extern "C" HRESULT WINAPI setSound(DWORD event, const Sound *changed, DWORD flags)
{
    standins::logCall("aygshell 389", event, changed->type, flags);
    if (event != allSounds || standins::isToFail(L"aygshell 389"))
        return unknownEvent;
    record = *changed;
    return S_OK;
}
