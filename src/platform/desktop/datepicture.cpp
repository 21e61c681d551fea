#include "platform/desktop/datepicture.h"

#include <algorithm>

namespace platform {

namespace {

constexpr char16_t quote = u'\'';

/// Takes the front of @p rest off, up to @p end.
std::u16string_view take(std::u16string_view &rest, std::size_t end)
{
    const std::u16string_view front = rest.substr(0, end);
    rest.remove_prefix(front.size());
    return front;
}

/// Reads what follows an opening quote, up to and with the closing one.
void readQuoted(std::u16string_view &rest, std::vector<PictureToken> &tokens)
{
    while (!rest.empty()) {
        const std::size_t end = rest.find(quote);
        const bool isDoubled = end < rest.size() - 1 && rest[end + 1] == quote;
        tokens.push_back({0, take(rest, isDoubled ? end + 1 : end)});
        rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
        if (!isDoubled)
            return;
    }
}

} // namespace

std::vector<PictureToken> readPicture(std::u16string_view picture, std::u16string_view letters)
{
    std::vector<PictureToken> tokens;
    while (!picture.empty()) {
        const char16_t first = picture.front();
        const bool isLetter = letters.find(first) != std::u16string_view::npos;
        if (first == quote) {
            picture.remove_prefix(1);
            readQuoted(picture, tokens);
        } else if (isLetter) {
            tokens.push_back({first, take(picture, picture.find_first_not_of(first))});
        } else {
            tokens.push_back({0, take(picture, 1)});
        }
    }
    return tokens;
}

} // namespace platform
