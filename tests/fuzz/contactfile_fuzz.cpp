#include "fuzz/require.h"

#include <platform/desktop/outlook/contact.h>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const platform::FileItems file = platform::readContacts(content);
    require(file.items.empty() == !file.problem.isEmpty(), "a file has cards or a problem");
    for (std::size_t i = 0; i <= file.items.size(); ++i) {
        const QByteArray photo = platform::readContactPhoto(content, i);
        require(photo.size() <= content.size(), "a photo is in the file");
    }
    return 0;
}
