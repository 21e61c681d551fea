#pragma once

#include "platform/desktop/registrykeypath.h"
#include "platform/desktop/registrystore.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <functional>

#include <optional>

namespace platform {

/// One entry of a registry file.
struct RegistryEdit
{
    enum class Action {
        MakeKey,
        RemoveKey,
        SetValue,
        RemoveValue,
    };

    Action action = Action::MakeKey;
    RegistryKeyPath key;
    RegistryValue value; ///< for the actions on values; to remove one, only its name
};

/// What a registry file holds, or what is wrong with it.
struct RegFileContent
{
    QList<RegistryEdit> edits; ///< in the file's order; empty if there is an error
    int errorLine = 0; ///< counted from 1; 0 if there is no error
    QString error; ///< in plain words
};

enum class RegFileEncoding {
    Utf8,
    Utf16,
};

/// Reads a registry file of version 5 ("Windows Registry Editor Version 5.00"), in UTF-16 with a byte order
/// mark or in UTF-8. Every line has to make sense. Numbers of lines count line feeds, also those inside of
/// texts; an error in a text that has no end is told of the line where it begins.
RegFileContent parseRegFile(const QByteArray &bytes);

/// Writes edits as a registry file: in UTF-8 with plain line ends, or in UTF-16 as Windows does. What cannot
/// be put into UTF-8 turns it into UTF-16. Reading it gives the same edits, if those on values follow one
/// that makes their key; else that one comes on top.
QByteArray toRegFile(const QList<RegistryEdit> &edits, RegFileEncoding encoding);

/// The same piece by piece, for more than fits into a byte array.
void toRegFile(const QList<RegistryEdit> &edits, RegFileEncoding encoding,
               const std::function<void(const QByteArray &bytes)> &write);

/// A key's path as it is spelled in the registry. Parts that are not there stay as they are.
RegistryKeyPath storedSpelling(RegistryStore &store, const RegistryKeyPath &key);

/// Everything in and below a key, as edits that make it again. Nothing if there is no such key or it cannot
/// be read, which RegistryStore::problem() tells apart.
std::optional<QList<RegistryEdit>> exportKey(RegistryStore &store, const RegistryKeyPath &key);

/// Carries out all edits or, on failure, none; RegistryStore::problem() tells why. To remove what is not
/// there is no failure, and a value's key is made if it is missing.
bool applyEdits(RegistryStore &store, const QList<RegistryEdit> &edits);

} // namespace platform
