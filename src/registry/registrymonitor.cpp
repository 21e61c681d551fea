#include "registry/registrymonitor.h"

#include "platform/messagebox.h"
#include "platform/platform.h"
#include "registry/registrypath.h"
#include "registry/valuedata.h"

using platform::RegistryBytes;
namespace RegistryType = platform::RegistryType;

RegistryMonitor::RegistryMonitor(const QString &path, QObject *parent)
    : QObject(parent)
    , m_registry(platform::current().registry())
    , m_messageBox(platform::current().messageBox())
    , m_path(path)
{
    qRegisterMetaType<QVariant>("QVariant");

    const RegistryPath parts = RegistryPath::split(path);
    m_root = registryRoot(parts.root);
    m_valueName = parts.value;
    // With a single backslash the value's name is the key's path, too: there is no watching of values in a
    // root.
    m_key = path.count(QLatin1Char('\\')) > 1 ? parts.key : parts.value;

    read();
    m_notification = m_registry.notify(m_root, m_key.toStdU16String(), m_valueName.toStdU16String(),
                                       [this](const std::optional<RegistryBytes> &data) { tell(data); });
    if (!m_notification)
        showError(QLatin1String("Could not register notification for:") + m_path);
}

RegistryMonitor::~RegistryMonitor()
{
    stop();
}

QString RegistryMonitor::path() const
{
    return m_path;
}

RegistrySubscription *RegistryMonitor::subscription() const
{
    return m_subscription;
}

void RegistryMonitor::setSubscription(RegistrySubscription *subscription)
{
    m_subscription = subscription;
}

void RegistryMonitor::stop()
{
    m_notification.reset();
}

void RegistryMonitor::read()
{
    const auto key = m_registry.open(m_root, m_key.toStdU16String()).key;
    if (!key)
        return;
    const std::u16string name = m_valueName.toStdU16String();
    const std::optional<platform::RegistryValueInfo> info = key->info(name);
    if (!info)
        return;
    m_type = info->type;
    if (m_type == RegistryType::string && info->size > 0) {
        // With the terminating null, which new values are told without.
        if (const std::optional<RegistryBytes> data = key->read(name, info->size))
            m_value = registryText(*data, static_cast<int>(data->size() / 2));
    } else if (m_type == RegistryType::dword) {
        if (const std::optional<RegistryBytes> data = key->read(name, sizeof(qint32)))
            m_value = registryNumber(*data);
    }
}

// On a thread of the system's.
void RegistryMonitor::tell(const std::optional<RegistryBytes> &data)
{
    if (m_type == 0 && data && !findType())
        return;
    emit changed(this, m_value, data ? valueOf(*data) : QVariant());
}

bool RegistryMonitor::findType()
{
    const platform::RegistryOpening opening = m_registry.open(m_root, m_key.toStdU16String());
    if (!opening.key) {
        showError(QStringLiteral("Could not open registry: %1 %2").arg(m_path).arg(opening.status));
        return false;
    }
    const std::optional<platform::RegistryValueInfo> info = opening.key->info(m_valueName.toStdU16String());
    if (!info) {
        showError(QLatin1String("Could not get type for:") + m_path);
        return false;
    }
    m_type = info->type;
    return true;
}

QVariant RegistryMonitor::valueOf(const RegistryBytes &data) const
{
    if (m_type == RegistryType::string)
        return registryText(data, static_cast<int>(data.size() / 2) - 1);
    if (m_type == RegistryType::dword)
        return registryNumber(data);
    return QVariant();
}

void RegistryMonitor::showError(const QString &text)
{
    m_messageBox.show(text.toStdU16String(), u"Error");
}
