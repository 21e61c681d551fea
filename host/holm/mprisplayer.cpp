#include "mprisplayer.h"

#include "commandoptions.h"
#include "exitstatus.h"

#include <platform/desktop/terminaltext.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QRegularExpression>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusError>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

#include <algorithm>

namespace {

constexpr int longestText = 1000;

const QString prefix = QStringLiteral("org.mpris.MediaPlayer2.");
const QString playerPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

// The bus library ends the program for some names that no player can have.
bool isPlayerName(const QString &name)
{
    constexpr int longestName = 200;
    static const QRegularExpression form(QStringLiteral("\\A[A-Za-z0-9_-]+(\\.[A-Za-z0-9_-]+)*\\z"));
    return name.size() <= longestName && form.match(name).hasMatch();
}

bool isInvisible(QChar character)
{
    return platform::breaksLine(character) || character.category() == QChar::Other_Format;
}

/// A text for a terminal and a registry: one line, without control characters.
QString tidied(const QVariant &value)
{
    QString text = value.toString().left(longestText);
    if (text.size() == longestText && text.at(longestText - 1).isHighSurrogate())
        text.chop(1);
    std::replace_if(text.begin(), text.end(), isInvisible, QLatin1Char(' '));
    return text;
}

/// The dictionary in a value; empty if it is something else.
QVariantMap toMap(const QVariant &value)
{
    if (value.userType() != qMetaTypeId<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    return argument.currentSignature() == QLatin1String("a{sv}") ? qdbus_cast<QVariantMap>(argument)
                                                                 : QVariantMap();
}

} // namespace

MprisPlayer::MprisPlayer(const platform::DeviceFolder &device, const QString &name)
    : S2pPlayer(device)
    , m_name(name)
    , m_service(prefix + name)
    , m_bus(QDBusConnection::sessionBus())
{
}

QString MprisPlayer::start()
{
    if (!m_bus.isConnected())
        return QLatin1String("the session bus, where players are found, cannot be reached: ")
            + m_bus.lastError().message();
    if (!isPlayerName(m_name))
        return noSuchPlayer();
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(m_service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &newOwner) { changeOwner(newOwner); });
    if (!m_bus.interface()->isServiceRegistered(m_service))
        return noSuchPlayer();

    m_bus.connect(m_service, playerPath, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                  SLOT(refresh()));
    m_bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                  QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                  SLOT(loseBus()));
    refresh();
    return QString();
}

void MprisPlayer::playOrPause()
{
    m_bus.send(call(playerInterface, QStringLiteral("PlayPause")));
}

void MprisPlayer::next()
{
    m_bus.send(call(playerInterface, QStringLiteral("Next")));
}

void MprisPlayer::previous()
{
    m_bus.send(call(playerInterface, QStringLiteral("Previous")));
}

void MprisPlayer::refresh()
{
    // One question at a time, however fast the changes come.
    m_isOutdated = m_isAsking;
    if (m_isAsking)
        return;
    m_isAsking = true;
    QDBusMessage question = call(propertiesInterface, QStringLiteral("GetAll"));
    question << playerInterface;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_isAsking = false;
        const QDBusPendingReply<QVariantMap> reply = *watcher;
        if (!reply.isError())
            take(reply.value());
        else if (reply.error().type() != QDBusError::ServiceUnknown) // of which changeOwner() tells
            tellFailure(m_name + QLatin1String(" does not tell what it plays: ") + reply.error().message());
        if (m_isOutdated)
            refresh();
    });
}

void MprisPlayer::loseBus()
{
    QCoreApplication::exit(tellFailure(QStringLiteral("the session bus has gone")));
}

QDBusMessage MprisPlayer::call(const QString &interface, const QString &method) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, playerPath, interface, method);
    message.setAutoStartService(false);
    return message;
}

QString MprisPlayer::noSuchPlayer() const
{
    QStringList names;
    const QStringList services = m_bus.interface()->registeredServiceNames();
    for (const QString &service : services) {
        if (service.startsWith(prefix))
            names.append(service.mid(prefix.size()));
    }
    const QString others = names.isEmpty() ? QStringLiteral("none is running")
                                           : QLatin1String("running: ") + names.join(QLatin1String(", "));
    return QLatin1String("there is no player ") + inQuotes(m_name) + QLatin1String("; ") + others;
}

void MprisPlayer::changeOwner(const QString &newOwner)
{
    if (!newOwner.isEmpty())
        return refresh();
    publishStop();
    tellFailure(m_name + QLatin1String(" has gone; waiting for it to come back"));
}

void MprisPlayer::take(const QVariantMap &properties)
{
    const QVariantMap metadata = toMap(properties.value(QStringLiteral("Metadata")));
    publish({properties.value(QStringLiteral("PlaybackStatus")).toString() == QLatin1String("Playing"),
             tidied(metadata.value(QStringLiteral("xesam:title"))),
             tidied(metadata.value(QStringLiteral("xesam:album")))});
}
