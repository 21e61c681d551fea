#include "platform/desktop/desktopwindows.h"
#include "platform/desktop/messagewindow.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using platform::MessageWindow;

namespace {

const QString s2p = QStringLiteral("S2P");

class MessageWindowTest : public testing::Test
{
protected:
    void sendRaw(const QByteArray &bytes) const
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, QFile::encodeName(m_file).constData(), sizeof address.sun_path);
        const int socket = ::socket(AF_UNIX, SOCK_DGRAM, 0);
        EXPECT_EQ(sendto(socket, bytes.constData(), static_cast<std::size_t>(bytes.size()), 0,
                         reinterpret_cast<const sockaddr *>(&address), sizeof address),
                  bytes.size());
        close(socket);
    }

    QTemporaryDir m_dir;
    platform::DeviceFolder m_device{m_dir.path()};
    QString m_file = m_dir.filePath(QStringLiteral("message windows/S2P"));
};

} // namespace

TEST_F(MessageWindowTest, TakesWholeMessagesOnly)
{
    platform::DesktopWindows windows(m_device);
    EXPECT_FALSE(windows.find(u"S2P"));
    MessageWindow window(m_device, s2p);
    ASSERT_EQ(window.problem(), QString());
    QStringList received;
    QObject::connect(&window, &MessageWindow::received, [&received](const platform::WindowMessage &message) {
        received.append(
            QStringLiteral("%1 %2 %3").arg(message.message).arg(message.wParam).arg(message.lParam));
    });

    const auto handle = windows.find(u"S2P");
    ASSERT_TRUE(handle);
    EXPECT_GT(*handle, 0xffffffffu);
    EXPECT_EQ(windows.find(u"S2P"), handle);
    EXPECT_FALSE(windows.find(u"s2p"));
    EXPECT_TRUE(windows.post(*handle, {platform::commandMessage, 301, 0}));
    for (const int size : {0, 1, 19, 21, 24, 60000})
        sendRaw(QByteArray(size, 'x'));
    EXPECT_TRUE(windows.post(*handle, {0xffffffff, ~std::uint64_t(0), -2}));
    EXPECT_TRUE(QTest::qWaitFor([&received] { return received.size() == 2; }));
    EXPECT_EQ(
        received,
        QStringList({QStringLiteral("273 301 0"), QStringLiteral("4294967295 18446744073709551615 -2")}));
    for (const platform::WindowHandle other : {platform::WindowHandle(0), *handle - 1, *handle + 1})
        EXPECT_FALSE(windows.post(other, {1, 2, 3}));

    // Nobody reads now: a sender must not wait for ever.
    QElapsedTimer time;
    time.start();
    int posts = 0;
    while (windows.post(*handle, {1, 2, 3}))
        ASSERT_LT(++posts, 100000);
    EXPECT_LT(time.elapsed(), 5000);
}

TEST_F(MessageWindowTest, HasOneOwnerAtATime)
{
    auto first = std::make_unique<MessageWindow>(m_device, s2p);
    EXPECT_EQ(first->problem(), QString());
    {
        const MessageWindow second(m_device, s2p);
        EXPECT_TRUE(second.problem().contains(QLatin1String("already"))) << second.problem().toStdString();
    }
    EXPECT_TRUE(MessageWindow::exists(m_device, s2p)) << "gone with the one that was refused";
    first.reset();
    EXPECT_FALSE(QFile::exists(m_file));

    // Not a socket, so not for us to delete.
    QFile file(m_file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(MessageWindow(m_device, s2p).problem().endsWith(QLatin1String("stands at ") + m_file));
    EXPECT_TRUE(file.exists());
}

TEST_F(MessageWindowTest, AnyTitleAndAnyDevice)
{
    const platform::DeviceFolder deep(
        m_dir.filePath(QString(90, QLatin1Char('d')) + QLatin1Char('/') + QString(90, QLatin1Char('e'))));
    ASSERT_TRUE(QDir().mkpath(deep.path()));
    for (const QString &title : {QStringLiteral(".."), QStringLiteral("a/../b c")}) {
        EXPECT_FALSE(MessageWindow::exists(deep, title)) << title.toStdString();
        const MessageWindow window(deep, title);
        EXPECT_EQ(window.problem(), QString());
        EXPECT_TRUE(MessageWindow::post(deep, title, {1, 2, 3})) << title.toStdString();
    }
    for (const QString &title : {QString(), QString(300, QLatin1Char('x'))}) {
        EXPECT_TRUE(MessageWindow(deep, title).problem().endsWith(QLatin1String("empty or too long")));
        EXPECT_FALSE(MessageWindow::exists(deep, title));
    }
    EXPECT_FALSE(
        MessageWindow(platform::DeviceFolder(QStringLiteral("/proc/none")), s2p).problem().isEmpty());
}

TEST_F(MessageWindowTest, TellsOfItsRemoval)
{
    const auto removeSocket = [this] { return QFile::remove(m_file); };
    const auto removeDevice = [this] { return QDir(m_device.path()).removeRecursively(); };
    for (const std::function<bool()> &remove : {std::function<bool()>(removeSocket), {removeDevice}}) {
        auto window = std::make_unique<MessageWindow>(m_device, s2p);
        int removals = 0;
        QObject::connect(window.get(), &MessageWindow::removed, [&removals] { ++removals; });
        {
            const MessageWindow other(m_device, QStringLiteral("other"));
        }
        QTest::qWait(20);
        EXPECT_EQ(removals, 0) << "only another one was removed";
        EXPECT_TRUE(remove());
        QDir().mkdir(m_device.path());
        const MessageWindow successor(m_device, s2p);
        EXPECT_EQ(successor.problem(), QString());
        EXPECT_TRUE(QTest::qWaitFor([&removals] { return removals == 1; }));
        window.reset();
        EXPECT_TRUE(MessageWindow::exists(m_device, s2p)) << "gone with the one that was removed";
    }
}
