#include "platform/desktop/desktopmessagebox.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <gmock/gmock.h>
#include <thread>

namespace {

/// Closes the message box that is open, and returns what it said.
QString closeBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box)
        return QString();
    const QString said = box->windowTitle() + QLatin1String(": ") + box->text();
    box->close();
    return said;
}

} // namespace

TEST(DesktopMessageBox, WaitsForTheUserOnTheGuiThreadOnly)
{
    platform::DesktopMessageBox messageBox;
    QString said;
    QTimer::singleShot(0, qApp, [&said] { said = closeBox(); });
    messageBox.show(u"here", u"Error");
    EXPECT_EQ(said, QStringLiteral("Error: here"));

    std::thread([&messageBox] { messageBox.show(u"elsewhere", u"Error"); }).join();
    EXPECT_EQ(closeBox(), QString());
    QCoreApplication::processEvents();
    EXPECT_EQ(closeBox(), QStringLiteral("Error: elsewhere"));
}
