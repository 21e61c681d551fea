#include "orvanecore/functionarguments.h"
#include "orvanecore/iapplication.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"
#include "registry/registrymonitor.h"

#include <QtCore/QMutexLocker>

void KestCommandProvider::regEventSuscribe(FunctionArguments *arguments)
{
    if (!checkArguments("regEventSuscribe", *arguments,
                        {3, 3, {ArgumentType::QObject, ArgumentType::Function, ArgumentType::String}}))
        return;
    const QString path = arguments->argument(2).toString();

    QMutexLocker lock(&m_registryMutex);
    std::unique_ptr<RegistrySubscription> &subscription = registryMonitors[path];
    if (!subscription) {
        subscription = std::make_unique<RegistrySubscription>();
        subscription->monitor = new RegistryMonitor(path, this);
        // Two paths may have the same number, and then share the event.
        subscription->event = QLatin1String("regChanged") + QString::number(qHash(path));
        connect(subscription->monitor, &RegistryMonitor::changed, this, &KestCommandProvider::registryChanged,
                Qt::QueuedConnection);
        subscription->monitor->setSubscription(subscription.get());
    }
    ++subscription->count;
    const QString event = subscription->event;
    lock.unlock();

    m_application->subscribeEvent(arguments->argument(0), arguments->argument(1), event);
}

void KestCommandProvider::regEventUnSuscribe(FunctionArguments *arguments)
{
    if (!checkArguments("regEventUnSuscribe", *arguments,
                        {2, 2, {ArgumentType::QObject, ArgumentType::String}}))
        return;
    const QString path = arguments->argument(1).toString();

    QMutexLocker lock(&m_registryMutex);
    const auto found = registryMonitors.find(path);
    if (found == registryMonitors.end())
        return;
    const QString event = found->second->event;
    if (--found->second->count == 0) {
        RegistryMonitor *monitor = found->second->monitor;
        registryMonitors.erase(found);
        disconnect(monitor, &RegistryMonitor::changed, this, &KestCommandProvider::registryChanged);
        monitor->stop();
        // Changes that are on their way to registryChanged() still name the monitor, so it goes by the same
        // way, behind them. deleteLater() would get ahead of them when the event loop ends.
        monitor->setSubscription(nullptr);
        QMetaObject::invokeMethod(
            this, [monitor] { delete monitor; }, Qt::QueuedConnection);
    }
    lock.unlock();

    m_application->unsubscribeEvent(arguments->argument(0), event);
}

void KestCommandProvider::registryChanged(RegistryMonitor *monitor, const QVariant &oldValue,
                                          const QVariant &newValue)
{
    if (!monitor->subscription())
        return;
    m_application->fireEvent(
        monitor->subscription()->event,
        {monitor->path(), m_application->toScriptValue(oldValue), m_application->toScriptValue(newValue)});
}
