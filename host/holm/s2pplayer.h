#pragma once

#include <platform/desktop/devicefolder.h>
#include <platform/desktop/messagewindow.h>
#include <platform/desktop/registrystore.h>

#include <QtCore/QObject>
#include <QtCore/QString>

/// A music player as the device's widgets know S2P: it takes commands through the message window "S2P" and
/// publishes what it plays in the registry, under HKEY_CURRENT_USER\Software\A_C\S2P. What really plays is
/// the business of derived classes.
class S2pPlayer : public QObject
{
    Q_OBJECT

public:
    /// What is played; while it pauses, what will be played next.
    struct State
    {
        bool isPlaying = false;
        QString title;
        QString album;
    };

    explicit S2pPlayer(const platform::DeviceFolder &device);

    /// Plays until a signal ends the process or the window is removed, and publishes then that nothing is
    /// played any more. Tells on standard error what it cannot do. Returns holm's exit status. Needs an
    /// application object.
    int run();

protected:
    /// Called once the window is there. Returns an empty text, or why nothing can be played, in plain words.
    virtual QString start() = 0;

    virtual void playOrPause() = 0;
    virtual void next() = 0;
    virtual void previous() = 0;

    /// Makes a state known, in the registry and on standard output, if it differs from the one made known
    /// before. A failure is told on standard error.
    void publish(const State &state);

    /// Makes known, in the registry alone, that what was played is not played any more.
    void publishStop();

private:
    QString problemWithWindow() const;
    void carryOut(const platform::WindowMessage &message);
    bool write(const State &state);

    const platform::DeviceFolder m_device;
    platform::RegistryStore m_registry;
    platform::MessageWindow m_window;
    State m_published;
};
