#include "holm/devicescreen.h"

#include <QtTest/QTest>
#include <QtWidgets/QPushButton>
#include <gmock/gmock.h>

TEST(DeviceScreen, TheWidgetTakesNoClicksBehindADialogWithoutAParent)
{
    QPushButton widget;
    widget.resize(300, 400);
    widget.show();
    const DeviceScreen screen(false, &widget);
    QWidget menu(nullptr, Qt::Dialog);
    menu.setWindowModality(Qt::WindowModal);
    int clicks = 0;
    QObject::connect(&widget, &QPushButton::clicked, [&clicks] { ++clicks; });
    const auto click = [&] { QTest::mouseClick(widget.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5)); };

    click();
    EXPECT_EQ(clicks, 1);
    menu.showMaximized();
    EXPECT_EQ(menu.size(), QSize(240, 320));
    click();
    EXPECT_EQ(clicks, 1);
    menu.hide();
    click();
    EXPECT_EQ(clicks, 2);
}
