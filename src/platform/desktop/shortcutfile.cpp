#include "platform/desktop/shortcutfile.h"

#include <QtCore/QList>

namespace platform {

namespace {

QString commandOf(const QByteArray &content)
{
    const QList<QByteArray> lines = content.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(';'))
            continue;
        const int mark = line.indexOf('#');
        return mark < 0 ? QString() : QString::fromUtf8(line.mid(mark + 1)).trimmed();
    }
    return QString();
}

} // namespace

std::optional<ShortcutTarget> parseShortcut(const QByteArray &content)
{
    const QString command = commandOf(content).section(QLatin1Char('?'), 0, 0).trimmed();
    const bool quoted = command.startsWith(QLatin1Char('"'));
    const int start = quoted ? 1 : 0;
    const int end = command.indexOf(QLatin1Char(quoted ? '"' : ' '), start);

    ShortcutTarget target;
    target.file = end < 0 ? command.mid(start) : command.mid(start, end - start);
    if (target.file.isEmpty())
        return std::nullopt;
    if (end >= 0)
        target.parameters = command.mid(end + 1).trimmed();
    return target;
}

} // namespace platform
