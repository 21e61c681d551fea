#pragma once

#include "platform/toplevelwindows.h"

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

namespace platform {

class DeviceFolder;

/// A window of the simulated device that is never seen and only takes messages: a datagram socket in the
/// folder "message windows" of the device, named by the window's title. It goes when the object is destroyed
/// or its process ends, however it ends; the file of a process that was killed stays until the next owner,
/// but counts as no window. A title that takes more than about 85 bytes, percent-encoded, is too long.
class MessageWindow : public QObject
{
    Q_OBJECT

public:
    /// Makes the window. If there is a living one of that title already, or its socket cannot be made, for
    /// want of the device perhaps, problem() tells so and nothing will be received.
    MessageWindow(const DeviceFolder &device, const QString &title, QObject *parent = nullptr);
    ~MessageWindow() override;

    /// Empty, or why there is no window, in plain words.
    QString problem() const;

    /// Whether a living window has that title.
    static bool exists(const DeviceFolder &device, const QString &title);

    /// Sends a message to the window with that title. Waits a moment at most if its queue is full. False if
    /// there is no living window or it does not take messages.
    static bool post(const DeviceFolder &device, const QString &title, const WindowMessage &message);

signals:
    /// A message has arrived. What is not a whole message never gets here.
    void received(const platform::WindowMessage &message);

    /// The socket was deleted, with its device perhaps: no message can arrive any more.
    void removed();

private:
    class Socket;

    void readMessage();
    void checkPresence();

    QFileSystemWatcher m_folder;
    std::unique_ptr<Socket> m_socket; ///< null if there is no window
    QString m_problem;
};

} // namespace platform
