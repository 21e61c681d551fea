#pragma once

#include <QtCore/QStringList>

namespace platform {

/// Splits program parameters as Windows does (CommandLineToArgvW, the rules for what follows the program
/// name): blanks and tabs separate, double quotes hold together, a backslash before a quote makes the
/// quote a plain character, and three quotes in a row stand for a plain one.
QStringList splitParameters(const QString &parameters);

} // namespace platform
