#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// The contracts speak of char16_t, the system's calls of wchar_t; on Windows both are UTF-16 units.

namespace platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// As the system's calls take it, up to its first null; valid as long as @p text is.
inline const wchar_t *wide(const std::u16string &text)
{
    return reinterpret_cast<const wchar_t *>(text.c_str());
}

inline std::u16string utf16(std::wstring_view text)
{
    return {reinterpret_cast<const char16_t *>(text.data()), text.size()};
}

/// Whether every half of a surrogate pair has the other.
inline bool isText(std::u16string_view text)
{
    const auto isHalf = [text](std::size_t i, char16_t first) {
        return i < text.size() && text[i] >= first && text[i] < first + 0x400;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = isHalf(i, 0xd800) && isHalf(i + 1, 0xdc00);
        if (!isPair && (isHalf(i, 0xd800) || isHalf(i, 0xdc00)))
            return false;
        i += isPair ? 1 : 0;
    }
    return true;
}

/// Path with the one separator that the system's own calls all know.
inline std::u16string nativePath(std::u16string path)
{
    for (char16_t &unit : path) {
        if (unit == u'/')
            unit = u'\\';
    }
    return path;
}

} // namespace platform
