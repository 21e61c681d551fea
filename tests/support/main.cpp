#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <gmock/gmock.h>

/// Of the address sanitizer, in builds that have it.
extern "C" [[gnu::weak]] void __lsan_do_leak_check();

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", QPA_PLATFORM);
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    // Neither the user's settings, nor those of another test that runs at the same time.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    const int status = RUN_ALL_TESTS();
    // Not at the end of the process, where the sanitizer may stumble over threads of Qt's that are ending,
    // too.
    if (__lsan_do_leak_check)
        __lsan_do_leak_check();
    return status;
}
