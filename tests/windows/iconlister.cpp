// iconlister FILE...
//
// Tells what the desktop back end finds of the icons in programs: for each a line with "1", the digest of its
// large picture, or 0 if that does not have the size that Windows shows without scaling, its index and its
// file; and for each file a line with "0" and the index that follows.

#include "windows/icondigest.h"

#include "platform/desktop/icons/desktopicons.h"

#include <cstdio>

namespace {

constexpr int largeSide = 32;

unsigned long long digestOfLarge(const platform::ExtractedIcons &icons)
{
    const platform::Picture picture = icons.large ? icons.large->picture() : platform::Picture();
    return picture.width == largeSide && picture.height == largeSide ? digestOf(picture) : 0;
}

} // namespace

int main(int argc, char **argv)
{
    platform::DesktopIcons icons{platform::DeviceFolder(QString())};
    for (int i = 1; i < argc; ++i) {
        unsigned count = 1;
        for (int index = 0; count > 0; ++index) {
            const auto found = icons.extract(QString::fromLocal8Bit(argv[i]).toStdU16String(), index);
            count = found.count;
            std::printf("%d %llu %d %s\n", count > 0, digestOfLarge(found), index, argv[i]);
        }
    }
}
