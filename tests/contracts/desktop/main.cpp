#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    return RUN_ALL_TESTS();
}
