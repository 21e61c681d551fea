#include "fuzz/require.h"
#include "support/registryedits.h"

#include <cstddef>
#include <cstdint>

using platform::RegFileEncoding;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const auto content = platform::parseRegFile(bytes);
    if (!content.error.isEmpty()) {
        require(content.errorLine >= 1 && content.errorLine <= bytes.count('\n') + 1,
                "an error is in one of the lines");
        require(content.edits.isEmpty(), "nothing is left of a file with an error");
        return 0;
    }
    for (const auto encoding : {RegFileEncoding::Utf8, RegFileEncoding::Utf16}) {
        const auto again = platform::parseRegFile(toRegFile(content.edits, encoding));
        require(again.error.isEmpty(), "what was written can be read");
        require(again.edits == content.edits, "what was written is read as it was");
    }
    return 0;
}
