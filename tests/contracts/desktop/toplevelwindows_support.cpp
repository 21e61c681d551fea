#include "contracts/toplevelwindows.h"

#include "platform/desktop/desktopwindows.h"
#include "platform/desktop/messagewindow.h"

#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>

namespace contracts {

namespace {

class Opener : public WindowOpener
{
public:
    explicit Opener(const std::vector<std::u16string> &windows)
    {
        QStringList arguments;
        for (const std::u16string &argument : windows)
            arguments += QString::fromStdU16String(argument);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // It counts in the X server's pixels however this program is scaled.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("QT_SCALE_FACTOR"));
        m_process.setProcessEnvironment(environment);
        m_process.start(QStringLiteral(WINDOW_OPENER), arguments);
    }
    ~Opener() override
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Opener)

    std::u16string file() const override
    {
        return QFileInfo(QStringLiteral(WINDOW_OPENER)).canonicalFilePath().toStdU16String();
    }

    std::string readLine() override
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) { }
        return m_process.readLine().trimmed().toStdString();
    }

private:
    QProcess m_process;
};

class Target : public MessageTarget
{
public:
    explicit Target(const QString &title)
        : m_window(m_device, title)
    {
        EXPECT_EQ(m_window.problem(), QString());
        QObject::connect(&m_window, &platform::MessageWindow::received, &m_window,
                         [this](const platform::WindowMessage &message) { taken.push_back(message); });
    }

    platform::TopLevelWindows &windows() override { return m_windows; }

private:
    const QTemporaryDir m_folder;
    const platform::DeviceFolder m_device{m_folder.path()};
    platform::DesktopWindows m_windows{m_device};
    platform::MessageWindow m_window;
};

} // namespace

std::unique_ptr<WindowOpener> openWindows(const std::vector<std::u16string> &windows)
{
    return std::make_unique<Opener>(windows);
}

std::unique_ptr<MessageTarget> makeTarget(const std::u16string &title)
{
    return std::make_unique<Target>(QString::fromStdU16String(title));
}

} // namespace contracts
