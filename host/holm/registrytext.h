#pragma once

#include <platform/desktop/registrystore.h>

#include <QtCore/QString>

/// A value's data for people: a text less its terminating null, a number in decimal, anything else as
/// hexadecimal bytes with blanks between.
QString toReadableText(const platform::RegistryValue &value);

/// The name of a value's type, such as "REG_SZ", or else its number.
QString typeName(quint32 type);

/// A text in which everything that could end or disturb a line is written as "\n", "\t", "\u001b" and the
/// like.
QString onOneLine(const QString &text);

/// Whether a terminal would do something else with a character than show it in its line.
bool breaksLine(QChar c);
