#pragma once

#include "platform/registry.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <memory>

class RegistryMonitor;

namespace platform {
class NativeMessageBox;
} // namespace platform

/// The subscribers of one registry value.
struct RegistrySubscription
{
    RegistryMonitor *monitor = nullptr; ///< a child of the provider
    QString event; ///< the host event that tells them
    int count = 0; ///< subscriptions, not subscribers
};

/// Watches one registry value, from its making to stop(). Belongs to the GUI thread; changes arrive on a
/// thread of the system's. Failures are shown in the system's own message box.
class RegistryMonitor : public QObject
{
    Q_OBJECT

public:
    /// Reads the value as it is and begins to watch it. @p path is the value's full name.
    explicit RegistryMonitor(const QString &path, QObject *parent = nullptr);
    ~RegistryMonitor() override;

    QString path() const;

    /// The record that this monitor serves; null once it has been dropped.
    RegistrySubscription *subscription() const;
    void setSubscription(RegistrySubscription *subscription);

    /// Ends the watching: nothing will be emitted any more, though what was emitted may still be on its way
    /// to slots of other threads.
    void stop();

signals:
    /// The value has changed; emitted on a thread of the system's. @p oldValue is always the value that was
    /// read when the monitor was made: a text with its terminating null, a number, or invalid. @p newValue is
    /// invalid if the value was deleted.
    void changed(RegistryMonitor *monitor, const QVariant &oldValue, const QVariant &newValue);

private:
    void read();
    void tell(const std::optional<platform::RegistryBytes> &data);
    bool findType();
    QVariant valueOf(const platform::RegistryBytes &data) const;
    void showError(const QString &text);

    platform::Registry &m_registry;
    platform::NativeMessageBox &m_messageBox;
    RegistrySubscription *m_subscription = nullptr;
    platform::RegistryRoot m_root;
    const QString m_path;
    quint32 m_type = 0; ///< 0: not known yet. The system's thread's own while there is a notification
    QString m_key;
    QString m_valueName;
    QVariant m_value;
    std::unique_ptr<platform::RegistryNotification> m_notification; ///< ends before what its listener uses
};
