#pragma once

#include "platform/registry.h"

#include <QtCore/QString>

/// The full name of a registry value: a root's name, the key's path and the value's name, joined by
/// backslashes.
struct RegistryPath
{
    QString root;
    QString key; ///< empty: the root itself
    QString value;

    /// Any text can be split: without a backslash it is its own root and value.
    static RegistryPath split(const QString &path);
};

/// The root key of that name, short or long; letter case counts. RegistryRoot::None if there is no such root.
platform::RegistryRoot registryRoot(const QString &name);

/// Opens a key below a root, or the root itself if @p key is empty.
platform::RegistryOpening openRegistryKey(const QString &root, const QString &key);
