#include "fuzz/target.h"
#include "support/registryedits.h"

using platform::RegFileEncoding;

void tryInput(const QByteArray &bytes)
{
    const auto content = platform::parseRegFile(bytes);
    if (!content.error.isEmpty()) {
        require(content.errorLine >= 1 && content.errorLine <= bytes.count('\n') + 1,
                "an error is in one of the lines");
        require(content.edits.isEmpty(), "nothing is left of a file with an error");
        return;
    }
    for (const auto encoding : {RegFileEncoding::Utf8, RegFileEncoding::Utf16}) {
        const auto again = platform::parseRegFile(toRegFile(content.edits, encoding));
        require(again.error.isEmpty(), "what was written can be read");
        require(again.edits == content.edits, "what was written is read as it was");
    }
}
