#pragma once

#include "s2pplayer.h"

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>

/// Stands between the device and a media player of the desktop that can be controlled through MPRIS, the
/// interface that players offer on the session bus.
///
/// The player may leave the bus and come back. What it tells is not trusted: texts are cut to a sensible
/// length, values of wrong types count as missing.
class MprisPlayer : public S2pPlayer
{
    Q_OBJECT

public:
    /// @p name is what follows "org.mpris.MediaPlayer2." in the player's name on the bus.
    MprisPlayer(const platform::DeviceFolder &device, const QString &name);

protected:
    QString start() override;
    void playOrPause() override;
    void next() override;
    void previous() override;

private slots:
    void refresh();
    void loseBus();

private:
    QDBusMessage call(const QString &interface, const QString &method) const;
    QString noSuchPlayer() const;
    void changeOwner(const QString &newOwner);
    void take(const QVariantMap &properties);

    const QString m_name;
    const QString m_service;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    bool m_isAsking = false;
    bool m_isOutdated = false; ///< there was a change since it was asked
};
