#pragma once

#include <optional>
#include <string>

// UTF-16 texts as gtest can show them.

namespace contracts {

/// ASCII as it is, other units as \uXXXX.
inline std::string shown(const std::u16string &text)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string result;
    for (const char16_t unit : text) {
        if (unit >= 0x20 && unit < 0x7f) {
            result.push_back(static_cast<char>(unit));
            continue;
        }
        result += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4)
            result.push_back(digits[unit >> shift & 0xf]);
    }
    return result;
}

inline std::string shown(const std::optional<std::u16string> &text)
{
    return text ? shown(*text) : "nothing";
}

} // namespace contracts
