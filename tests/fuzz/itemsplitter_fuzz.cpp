#include "fuzz/target.h"

#include <platform/desktop/outlook/itemsplitter.h>

void tryInput(const QByteArray &content)
{
    const platform::SplitFile file = platform::splitItems(content);
    require(file.problem.isEmpty() || file.items.empty(), "nothing is left of a file with a problem");
    for (const platform::SplitItem &item : file.items) {
        require(!item.uid.isEmpty(), "an item has a UID");
        const platform::SplitFile again = platform::splitItems(item.content);
        require(again.problem.isEmpty() && again.leftOut == 0 && again.items.size() == 1,
                "an item is a file with one item");
        require(again.items.front().folder == item.folder && again.items.front().uid == item.uid,
                "it is the same item");
        require(again.items.front().content == item.content, "and is split off as it is");
    }
}
