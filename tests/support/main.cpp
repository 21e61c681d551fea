#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", QPA_PLATFORM);
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    // Neither the user's settings, nor those of another test that runs at the same time.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    return RUN_ALL_TESTS();
}
