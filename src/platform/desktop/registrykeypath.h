#pragma once

#include "platform/registry.h"

#include <QtCore/QString>

#include <optional>

namespace platform {

/// The place of a key in the registry.
struct RegistryKeyPath
{
    RegistryRoot root = RegistryRoot::None;
    QString path; ///< below the root, without a closing backslash; empty for the root itself
};

/// Reads the full name of a key, such as "HKCU\Software\Widgets". Root names are known in their long and
/// short forms, in any letter case; one closing backslash is allowed. Nothing if it begins with no root's
/// name. Whether the key can exist is not looked at.
std::optional<RegistryKeyPath> parseKeyPath(const QString &text);

/// Why no key can have a path: a name in it that is empty, above 255 characters or with control characters,
/// or more than 64 names. Empty if one can.
QString problemWithKeyPath(const QString &path);

/// In characters.
constexpr int longestRegistryValueName = 16383;

/// The full name of a key, with the root's long name.
QString toString(const RegistryKeyPath &key);

} // namespace platform
