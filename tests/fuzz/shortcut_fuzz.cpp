#include "fuzz/target.h"

#include <platform/desktop/shortcutfile.h>
#include <programs/shortcuticon.h>

// The two readers of shortcuts: what one starts, and where its icon is.
void tryInput(const QByteArray &content)
{
    const auto target = platform::parseShortcut(content);
    require(!target || !target->file.isEmpty(), "a target has a file");

    const ShortcutIcon icon = readShortcutIcon(content);
    using Source = ShortcutIcon::Source;
    require(icon.source != Source::ShellName || icon.name.startsWith(QLatin1Char(':')),
            "the shell's names for programs begin with a colon");
    require(icon.source == Source::Location || icon.location.file.isEmpty(), "only a location has a file");
    require(!icon.location.file.contains(QLatin1Char('\n')), "a file is named in one line");

    const QString text = QString::fromUtf8(content);
    const IconLocation location = readIconLocation(text);
    require(text.contains(location.file), "the file of a location is part of its text");
    require(text.contains(programOf(text)), "a program is part of its command line");
}
