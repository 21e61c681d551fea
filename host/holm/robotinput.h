#pragma once

#include <QtCore/QString>

class QPoint;
class QWidget;

/// Mouse and keys, as they come from the window system: what stands in a person's way, such as another modal
/// window, a popup or a gesture, stands in theirs, too. All return once what they cause has been done, and
/// with it any dialog that they open has been closed.
namespace RobotInput {

/// Clicks the left button at @p position, which is inside of @p widget.
void click(const QWidget &widget, const QPoint &position);

/// Presses and releases a key with its modifiers, named as QKeySequence reads them. Returns false if there is
/// no such key.
bool pressKey(const QWidget &window, const QString &name);

/// Types a text into what has the focus in the window, up to the end of its first character; returns the
/// rest.
QString typeCharacter(const QWidget &window, const QString &text);

} // namespace RobotInput
