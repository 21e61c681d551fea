#include "dialoganswer.h"

#include <QtCore/QPointer>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <gmock/gmock.h>

DialogAnswer::DialogAnswer(std::function<void(QWidget &)> answer)
    : m_answer(std::move(answer))
{
    qApp->installEventFilter(this);
}

bool DialogAnswer::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = event->type() == QEvent::Show ? qobject_cast<QWidget *>(watched) : nullptr;
    if (!dialog || !dialog->isWindow() || !dialog->isModal() || qobject_cast<QMessageBox *>(dialog))
        return false;
    ++m_count;
    const auto act = [this, guarded = QPointer<QWidget>(dialog)] {
        if (!guarded)
            return;
        EXPECT_TRUE(QTest::qWaitForWindowActive(guarded));
        m_answer(*guarded);
        if (guarded && guarded->isVisible())
            guarded->close();
    };
    QMetaObject::invokeMethod(this, act, Qt::QueuedConnection);
    return false;
}

SaysYes::SaysYes()
{
    qApp->installEventFilter(this);
}

bool SaysYes::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = event->type() == QEvent::Show ? qobject_cast<QMessageBox *>(watched) : nullptr;
    if (box && box->button(QMessageBox::Yes))
        QMetaObject::invokeMethod(box->button(QMessageBox::Yes), &QAbstractButton::click,
                                  Qt::QueuedConnection);
    return false;
}

QStringList rowsOf(const QWidget &dialog)
{
    QStringList rows;
    const QAbstractItemModel *model = dialog.findChild<QListView *>()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(model->index(row, 0).data().toString());
    return rows;
}

void tapRow(const QWidget &dialog, const QString &text, Qt::MouseButton button)
{
    auto *list = dialog.findChild<QListView *>();
    const QModelIndex row = list->model()->index(rowsOf(dialog).indexOf(text), 0);
    ASSERT_TRUE(row.isValid()) << text.toStdString();
    list->scrollTo(row);
    QTest::mouseClick(list->viewport(), button, {}, list->visualRect(row).center());
}

void clickOn(const QWidget &dialog, const char *name)
{
    if (auto *button = dialog.findChild<QAbstractButton *>(QLatin1String(name))) {
        QTest::mouseClick(button, Qt::LeftButton);
        return;
    }
    auto *bar = dialog.findChild<QMenuBar *>();
    auto *action = dialog.findChild<QAction *>(QLatin1String(name));
    ASSERT_TRUE(bar && action) << name;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
}
