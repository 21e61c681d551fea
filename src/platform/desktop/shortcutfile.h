#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace platform {

/// What a shortcut starts.
struct ShortcutTarget
{
    QString file;
    QString parameters;
};

/// Reads a Windows CE shortcut: UTF-8 text whose first line that does not begin with ";" is
/// a count, "#", the target (quoted if it holds blanks), its parameters, and perhaps "?" and an
/// icon. Nothing if there is no target.
std::optional<ShortcutTarget> parseShortcut(const QByteArray &content);

} // namespace platform
