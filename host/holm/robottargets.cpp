#include "robottargets.h"

#include "robotinput.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace {

constexpr int menuPatienceMilliseconds = 500;

using Targets = std::vector<RobotTarget>;

// "&Save as...\tCtrl+S" is "Save as..."; "&&" is a "&".
QString shownText(const QString &text)
{
    QString shown = text.section(QLatin1Char('\t'), 0, 0);
    for (int i = shown.indexOf(QLatin1Char('&')); i >= 0; i = shown.indexOf(QLatin1Char('&'), i + 1))
        shown.remove(i, 1);
    return shown;
}

bool clickMiddle(const QWidget &widget, const QRect &area)
{
    if (area.isEmpty() || !widget.rect().contains(area.center()))
        return false;
    RobotInput::click(widget, area.center());
    return true;
}

// A popup takes all input for as long as it is open.
std::vector<const QWidget *> windowsOf(const QWidget &dialog)
{
    if (const QWidget *popup = QApplication::activePopupWidget())
        return {popup, &dialog};
    return {&dialog};
}

template <typename Widget>
std::vector<Widget *> visibleParts(const QWidget &dialog)
{
    std::vector<Widget *> parts;
    for (const QWidget *window : windowsOf(dialog)) {
        for (Widget *part : window->findChildren<Widget *>()) {
            if (part->window() == window && part->isVisible())
                parts.push_back(part);
        }
    }
    return parts;
}

RobotTarget targetOf(QAbstractButton *button)
{
    return {shownText(button->text()), button->isEnabled(),
            [button] { return clickMiddle(*button, button->visibleRegion().boundingRect()); }};
}

/// An action and how to get to it.
struct MenuPath
{
    QWidget *bar;
    QList<QAction *> actions;

    bool click() const;
    RobotTarget target() const;
};

QRect actionArea(const QWidget *menu, QAction *action)
{
    if (const auto *bar = qobject_cast<const QMenuBar *>(menu))
        return bar->actionGeometry(action);
    const auto *popup = qobject_cast<const QMenu *>(menu);
    return popup ? popup->actionGeometry(action) : QRect();
}

bool MenuPath::click() const
{
    const QWidget *menu = bar;
    for (QAction *action : actions) {
        const QMenu *next = action->menu();
        const bool isOpen = next && next->isVisible() && action != actions.last();
        if (!isOpen && !clickMiddle(*menu, actionArea(menu, action)))
            return false;
        if (action == actions.last())
            return true;
        // Submenus open after a moment.
        if (!QTest::qWaitFor([next] { return next->isVisible(); }, menuPatienceMilliseconds))
            return false;
        menu = next;
    }
    return false;
}

RobotTarget MenuPath::target() const
{
    const bool isEnabled = std::all_of(actions.cbegin(), actions.cend(),
                                       [](const QAction *action) { return action->isEnabled(); });
    return {shownText(actions.last()->text()), isEnabled, [path = *this] { return path.click(); }};
}

void addPaths(const MenuPath &before, const QList<QAction *> &actions, std::vector<MenuPath> &paths)
{
    for (QAction *action : actions) {
        if (!action->isVisible() || action->isSeparator() || before.actions.contains(action))
            continue;
        MenuPath path = before;
        path.actions.append(action);
        paths.push_back(path);
        if (action->menu())
            addPaths(path, action->menu()->actions(), paths);
    }
}

std::vector<MenuPath> menuPaths(const QWidget &dialog)
{
    std::vector<MenuPath> paths;
    for (QMenuBar *bar : visibleParts<QMenuBar>(dialog))
        addPaths({bar, {}}, bar->actions(), paths);
    if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
        addPaths({menu, {}}, menu->actions(), paths);
    return paths;
}

std::vector<QAbstractItemView *> listsIn(const QWidget &dialog)
{
    std::vector<QAbstractItemView *> lists = visibleParts<QAbstractItemView>(dialog);
    const auto isNone = [](const QAbstractItemView *view) {
        return qobject_cast<const QHeaderView *>(view) || !view->model();
    };
    lists.erase(std::remove_if(lists.begin(), lists.end(), isNone), lists.end());
    return lists;
}

QModelIndex rowAt(const QAbstractItemView &list, int row)
{
    const auto *view = qobject_cast<const QListView *>(&list);
    return list.model()->index(row, view ? view->modelColumn() : 0, list.rootIndex());
}

RobotTarget targetOf(QAbstractItemView *list, int row)
{
    const QModelIndex index = rowAt(*list, row);
    const bool isEnabled = list->isEnabled() && (list->model()->flags(index) & Qt::ItemIsEnabled);
    return {index.data().toString(), isEnabled, [list, row] {
                const QModelIndex now = rowAt(*list, row);
                list->scrollTo(now);
                return clickMiddle(*list->viewport(), list->visualRect(now) & list->viewport()->rect());
            }};
}

} // namespace

Targets RobotTargets::in(const QWidget &dialog)
{
    Targets targets;
    for (QAbstractButton *button : visibleParts<QAbstractButton>(dialog)) {
        if (!button->text().isEmpty())
            targets.push_back(targetOf(button));
    }
    for (const MenuPath &path : menuPaths(dialog))
        targets.push_back(path.target());
    for (QAbstractItemView *list : listsIn(dialog)) {
        for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
            targets.push_back(targetOf(list, row));
    }
    return targets;
}

std::optional<RobotTarget> RobotTargets::answerButton(const QWidget &dialog, bool accepts)
{
    const auto answers = [accepts](QDialogButtonBox::ButtonRole role) {
        return accepts ? role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::YesRole
                       : role == QDialogButtonBox::RejectRole || role == QDialogButtonBox::NoRole;
    };
    const auto rank = [](const QAbstractButton *button) {
        const auto *pushButton = qobject_cast<const QPushButton *>(button);
        return (button->isEnabled() ? 2 : 0) + (pushButton && pushButton->isDefault() ? 1 : 0);
    };
    QAbstractButton *best = nullptr;
    for (const QDialogButtonBox *box : visibleParts<QDialogButtonBox>(dialog)) {
        for (QAbstractButton *button : box->buttons()) {
            if (button->isVisible() && answers(box->buttonRole(button))
                && (!best || rank(button) > rank(best)))
                best = button;
        }
    }
    return best ? std::make_optional(targetOf(best)) : std::nullopt;
}

std::optional<RobotTarget> RobotTargets::menuAction(const QWidget &dialog, const QString &objectName)
{
    for (const MenuPath &path : menuPaths(dialog)) {
        if (path.actions.last()->objectName() == objectName)
            return path.target();
    }
    return std::nullopt;
}

QAbstractItemView *RobotTargets::list(const QWidget &dialog)
{
    const auto lists = listsIn(dialog);
    return lists.empty() ? nullptr : lists.front();
}

QStringList RobotTargets::rows(const QAbstractItemView &list)
{
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
        texts.append(rowAt(list, row).data().toString());
    return texts;
}

QString RobotTargets::selectedRow(const QAbstractItemView &list)
{
    const auto *selection = list.selectionModel();
    const QModelIndexList selected = selection ? selection->selectedIndexes() : QModelIndexList();
    if (selected.isEmpty())
        return QString();
    const int row = std::min_element(selected.cbegin(), selected.cend())->row();
    const QString text = rowAt(list, row).data().toString();
    return text.isNull() ? QStringLiteral("") : text;
}
