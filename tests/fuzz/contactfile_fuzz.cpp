#include "fuzz/target.h"

#include <platform/desktop/outlook/contact.h>

void tryInput(const QByteArray &content)
{
    const platform::FileItems file = platform::readContacts(content);
    require(file.items.empty() == !file.problem.isEmpty(), "a file has cards or a problem");
    for (std::size_t i = 0; i <= file.items.size(); ++i) {
        const QByteArray photo = platform::readContactPhoto(content, i);
        require(photo.size() <= content.size(), "a photo is in the file");
    }
}
