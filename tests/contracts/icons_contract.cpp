#include "contracts/backend.h"

#include "platform/icons.h"

#include <climits>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace {

using platform::Picture;

constexpr int side = 32;

std::u16string samplePath(const char *name)
{
    return std::filesystem::path(SOURCE_DIR "/tests/platform/icons/").append(name).u16string();
}

std::u16string writtenFile(const std::string &content)
{
    const std::filesystem::path path = std::filesystem::path(contracts::scratchFolder()) / "icon.dll";
    std::ofstream(path, std::ios::binary) << content;
    return path.u16string();
}

/// Both sizes, and the first pixel of the large one. Some systems make the small one of that.
std::string shown(const platform::ExtractedIcons &icons)
{
    std::string all = icons.count > 0 ? "found" : "nothing";
    const Picture large = icons.large ? icons.large->picture() : Picture();
    const Picture small = icons.small ? icons.small->picture() : Picture();
    if (!large.pixels.empty()) {
        char text[60];
        std::snprintf(text, sizeof(text), ", %dx%d %08x, %dx%d", large.width, large.height, large.pixels[0],
                      small.width, small.height);
        all += text;
    }
    return all;
}

class IconsContract : public testing::Test
{
protected:
    const std::unique_ptr<platform::Platform> m_platform = contracts::makePlatform();
    platform::Icons &m_icons = m_platform->icons();
};

/// An icon whose rows all show the same four pixels, again and again.
struct Kind
{
    int bitCount;
    std::vector<std::uint32_t> palette;
    std::vector<std::uint8_t> pixels; ///< four of them, or eight where one takes a bit
    std::uint8_t mask; ///< for eight pixels
    std::uint32_t shown[4]; ///< where alpha is 0, so is the colour
};

std::string iconFile(const Kind &kind)
{
    std::string colours(std::size_t(kind.bitCount <= 8 ? 4 : 0) << kind.bitCount, '\0');
    std::copy(kind.palette.begin(), kind.palette.end(), reinterpret_cast<std::uint32_t *>(colours.data()));
    std::string pixels;
    while (pixels.size() < static_cast<unsigned>(side * side * kind.bitCount / 8))
        pixels.append(kind.pixels.begin(), kind.pixels.end());
    const std::string mask(side * side / 8, static_cast<char>(kind.mask));
    const auto bits = static_cast<std::uint16_t>(kind.bitCount);
    const auto size = static_cast<std::uint16_t>(40 + colours.size() + pixels.size() + mask.size());
    const std::uint16_t header[11 + 20] = {0, 1,    1, side | side << 8, 0, 1, bits, size, 0, 22, 0, 40,
                                           0, side, 0, 2 * side,         0, 1, bits};
    return std::string(reinterpret_cast<const char *>(header), sizeof(header)) + colours + pixels + mask;
}

} // namespace

TEST_F(IconsContract, IconsAreFoundByIndexAndIdentifier)
{
    struct Case
    {
        const char *file;
        int index;
        const char *found;
    };
    // Icons of other sizes come out in these on some systems.
    const Case cases[] = {
        {"program64.dll", 0, "found, 32x32 ffff0002, 16x16"},
        {"program32.dll", 0, "found, 32x32 ffff0002, 16x16"},
        {"program64.dll", 3, "found, "},
        {"program64.dll", 4, "nothing"},
        {"program64.dll", -7, "found, "},
        {"program64.dll", -2, "nothing"},
        {"program64.dll", INT_MIN, "nothing"},
        {"program64.dll", INT_MAX, "nothing"},
        {"kinds.ico", 0, "found, "},
        {"kinds.ico", 1, "nothing"},
        {"kinds.ico", -5, "found, "},
        {"../icons_test.cpp", 0, "nothing"},
        {"missing.dll", 0, "nothing"},
        {"", 0, "nothing"},
    };
    for (const Case &row : cases)
        EXPECT_THAT(shown(m_icons.extract(samplePath(row.file), row.index)), testing::StartsWith(row.found))
            << row.file << ' ' << row.index;
    EXPECT_GE(m_icons.screenDensity(), 96);
}

TEST_F(IconsContract, PicturesHaveTheColoursAndTheTransparencyOfEveryKind)
{
    const Kind kinds[] = {
        {1, {0, 0xffffff}, {0x66}, 0x33, {0xff000000, 0xffffffff, 0, 0}},
        {1, {0x102030, 0x405060}, {0x66}, 0x33, {0xff102030, 0xff405060, 0, 0}},
        {4, {0, 0x102030, 0xffffff}, {0x01, 0x21}, 0x11, {0xff000000, 0xff102030, 0xffffffff, 0}},
        {8, {0, 0x102030, 0xffffff}, {0, 1, 2, 1}, 0x11, {0xff000000, 0xff102030, 0xffffffff, 0}},
        {16, {}, {0, 0, 16, 0x7c, 0xff, 0x7f, 0, 0}, 0x11, {0xff000000, 0xffff0084, 0xffffffff, 0}},
        {24, {}, {0, 0, 0, 3, 2, 1, 9, 9, 9, 9, 9, 9}, 0x11, {0xff000000, 0xff010203, 0xff090909, 0}},
        // Without alpha and with it.
        {32,
         {},
         {0, 0, 0, 0, 3, 2, 1, 0, 9, 9, 9, 0, 9, 9, 9, 0},
         0x11,
         {0xff000000, 0xff010203, 0xff090909, 0}},
        {32,
         {},
         {0, 0, 0, 255, 3, 2, 1, 1, 9, 9, 9, 128, 9, 9, 9, 0},
         0xaa,
         {0xff000000, 0x01010203, 0x80090909, 0}},
    };
    for (const Kind &kind : kinds) {
        const auto icons = m_icons.extract(writtenFile(iconFile(kind)), 0);
        const Picture picture = icons.large ? icons.large->picture() : Picture();
        ASSERT_EQ(picture.pixels.size(), static_cast<unsigned>(side * side)) << kind.bitCount;
        for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
            const std::uint32_t pixel = picture.pixels[i];
            ASSERT_EQ(pixel >> 24 == 0 ? 0 : pixel, kind.shown[i % 4]) << kind.bitCount << ' ' << i;
        }
    }
}
