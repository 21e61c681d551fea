#pragma once

#include <QtCore/QString>

namespace platform {

/// A text in which everything that could end or disturb a line is written as "\n", "\t", "\u001b" and the
/// like.
QString onOneLine(const QString &text);

/// Whether a terminal would do something else with a character than show it in its line.
bool breaksLine(QChar c);

} // namespace platform
