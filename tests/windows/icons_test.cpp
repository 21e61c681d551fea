#include "windows/icondigest.h"
#include "windows/resources.h"

#include "platform/windows/windowsicons.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace {

using platform::Picture;

constexpr char16_t sample[] = u"" SOURCE_DIR "/tests/platform/icons/program64.dll";

Picture pictureOf(const std::unique_ptr<platform::Icon> &icon)
{
    return icon ? icon->picture() : Picture();
}

} // namespace

// What iconlister found in Wine's own files; see there. Wine makes small icons of large ones.
TEST(WindowsIcons, AreThoseThatTheDesktopFinds)
{
    const char *const list = std::getenv("KESTCMD_ICON_LIST");
    ASSERT_TRUE(list) << "KESTCMD_ICON_LIST has to name a file with the output of iconlister";
    std::ifstream lines("Z:" + std::string(list));
    platform::WindowsIcons icons;
    bool isThere = false;
    std::uint64_t large = 0;
    int index = 0;
    std::string file;
    int compared = 0;
    while (lines >> isThere >> large >> index >> std::ws && std::getline(lines, file)) {
        const auto found = icons.extract(std::filesystem::path("Z:" + file).u16string(), index);
        EXPECT_EQ(found.count > 0, isThere) << file << ' ' << index;
        if (large != 0) {
            EXPECT_EQ(digestOf(pictureOf(found.large)), large) << file << ' ' << index << " large";
        }
        if (isThere) {
            EXPECT_EQ(pictureOf(found.small).width, 16) << file << ' ' << index << " small";
        }
        compared += large != 0;
    }
    std::printf("Compared %d icons\n", compared);
    EXPECT_GT(compared, 100);
}

TEST(WindowsIcons, LeaveNothingBehind)
{
    platform::WindowsIcons icons;
    constexpr int times = 5000; // of two icons, which take Wine 3 ms
    expectNoLeak(
        [&] {
            const auto found = icons.extract(sample, 0);
            EXPECT_EQ(pictureOf(found.large).width, 32);
            EXPECT_EQ(pictureOf(found.small).width, 16);
        },
        times);
    expectNoLeak([&] {
        EXPECT_EQ(icons.extract(u"Z:/missing.dll", 0).count, 0u);
        EXPECT_GT(icons.screenDensity(), 0);
    });
}
