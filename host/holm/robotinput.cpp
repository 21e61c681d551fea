#include "robotinput.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtGui/QKeySequence>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

namespace {

// Most keys of the keyboard that put a character into a text; the others are letters and the like.
QString textOf(int key, Qt::KeyboardModifiers modifiers)
{
    static const QHash<int, QString> controls{
        {Qt::Key_Return, QStringLiteral("\r")},   {Qt::Key_Enter, QStringLiteral("\r")},
        {Qt::Key_Tab, QStringLiteral("\t")},      {Qt::Key_Backspace, QStringLiteral("\b")},
        {Qt::Key_Escape, QStringLiteral("\x1b")}, {Qt::Key_Delete, QStringLiteral("\x7f")}};
    const bool isCharacter = key < Qt::Key_Escape; // where the keys without one begin
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return QString();
    if (!isCharacter)
        return controls.value(key);
    const auto codePoint = static_cast<uint>(key);
    const QString character = QString::fromUcs4(&codePoint, 1);
    return modifiers & Qt::ShiftModifier ? character : character.toLower();
}

void press(const QWidget &window, int key, const QString &text, Qt::KeyboardModifiers modifiers)
{
    const QPointer<QWindow> target = window.windowHandle();
    for (const auto action : {QTest::Press, QTest::Release}) {
        if (target) // the key may have ended it
            QTest::sendKeyEvent(action, target, static_cast<Qt::Key>(key), text, modifiers);
    }
}

} // namespace

void RobotInput::click(const QWidget &widget, const QPoint &position)
{
    const QWidget *top = widget.window();
    QPoint place = widget.mapTo(top, position);
    if (place.isNull())
        place = QPoint(0, 1); // QTest takes (0, 0) for the middle
    if (QWindow *target = top->windowHandle())
        QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, place);
}

bool RobotInput::pressKey(const QWidget &window, const QString &name)
{
    const QKeySequence sequence(name, QKeySequence::PortableText);
    if (sequence.count() != 1)
        return false;
    const Qt::KeyboardModifiers modifiers(sequence[0] & static_cast<int>(Qt::KeyboardModifierMask));
    const int key = sequence[0] & ~static_cast<int>(Qt::KeyboardModifierMask);
    if (key == 0 || key == Qt::Key_unknown)
        return false;
    press(window, key, textOf(key, modifiers), modifiers);
    return true;
}

QString RobotInput::typeCharacter(const QWidget &window, const QString &text)
{
    const QString key = text.startsWith(QLatin1Char('\n')) ? QStringLiteral("Return")
        : text.startsWith(QLatin1Char('\t'))               ? QStringLiteral("Tab")
                                                           : QString();
    if (!key.isEmpty()) {
        pressKey(window, key);
        return text.mid(1);
    }
    const bool isPair = text.size() > 1 && text.at(0).isHighSurrogate() && text.at(1).isLowSurrogate();
    const QString character = text.left(isPair ? 2 : 1);
    const uint codePoint = character.toUpper().toUcs4().value(0);
    press(window, static_cast<int>(codePoint), character, Qt::NoModifier);
    return text.mid(character.size());
}
