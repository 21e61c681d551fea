#pragma once

#include <platform/desktop/registrystore.h>

#include <QtCore/QString>

/// A value's data for people: a text less its terminating null, a number in decimal, anything else as
/// hexadecimal bytes with blanks between.
QString toReadableText(const platform::RegistryValue &value);

/// The name of a value's type, such as "REG_SZ", or else its number.
QString typeName(quint32 type);
