#pragma once

#include <QtCore/QStringList>

#include <functional>
#include <optional>
#include <vector>

class QAbstractItemView;
class QWidget;

/// Something that can be clicked in a dialog.
struct RobotTarget
{
    QString text; ///< what stands on it, without the mnemonic
    bool isEnabled;
    std::function<bool()> click; ///< returns false if the mouse cannot reach it
};

/// What a dialog, or a popup that is open above it, has for a robot; without what is hidden. Targets are good
/// for as long as the dialog stays as it is.
namespace RobotTargets {

/// Buttons, then actions of menus, then rows of lists.
std::vector<RobotTarget> in(const QWidget &dialog);

/// The button of a button box that accepts, or rejects, the dialog; the default one if it is such, and rather
/// one that is enabled.
std::optional<RobotTarget> answerButton(const QWidget &dialog, bool accepts);

/// The action with this object name in a menu of the dialog's menu bar.
std::optional<RobotTarget> menuAction(const QWidget &dialog, const QString &objectName);

/// The dialog's list, or null.
QAbstractItemView *list(const QWidget &dialog);

/// The texts of a list's rows.
QStringList rows(const QAbstractItemView &list);

/// The text of the first selected row; a null text if there is none.
QString selectedRow(const QAbstractItemView &list);

} // namespace RobotTargets
