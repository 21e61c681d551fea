#pragma once

#include <QtWidgets/QWidget>

#include <functional>

/// Answers modal dialogs, message boxes excepted, from their own event loops, during its life.
class DialogAnswer : public QObject
{
public:
    /// @p answer is called once for each dialog. A dialog that it leaves open is closed.
    explicit DialogAnswer(std::function<void(QWidget &dialog)> answer);

    /// How many dialogs have opened.
    int count() const { return m_count; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void(QWidget &)> m_answer;
    int m_count = 0;
};

/// Answers questions with Yes during its life.
class SaysYes : public QObject
{
public:
    SaysYes();

    bool eventFilter(QObject *watched, QEvent *event) override;
};

/// The texts of the rows that the dialog's list shows.
QStringList rowsOf(const QWidget &dialog);

/// Brings a row into view and taps it; the right button only selects it. Fails the test if there is none of
/// that text.
void tapRow(const QWidget &dialog, const QString &text, Qt::MouseButton button = Qt::LeftButton);

/// Clicks a button or an action of the menu bar, by its object name.
void clickOn(const QWidget &dialog, const char *name);
