#include "network/networkthread.h"

#include "network/httpmanager.h"
#include "network/networkevents.h"
#include "network/networkprocessor.h"
#include "network/xmlreading.h"

#include <QtCore/QCoreApplication>

NetworkThread::NetworkThread(FetchCallbacks &callbacks)
    : m_callbacks(callbacks)
{
    setObjectName(QStringLiteral("network"));
    setStackSize(xmlReadingStack);
}

NetworkThread::~NetworkThread()
{
    shutdown();
    wait();
}

bool NetworkThread::begin()
{
    m_finished = false;
    start(QThread::InheritPriority);
    if (!isRunning()) {
        m_finished = true;
        return false;
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    m_processorMade.wait(lock, [this] { return m_processor != nullptr; });
    return true;
}

bool NetworkThread::takesRequests()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_processor != nullptr;
}

void NetworkThread::post(const FetchRequest &request)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_processor)
        QCoreApplication::postEvent(m_processor, new BeginRequestEvent(request));
}

void NetworkThread::shutdown()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_processor)
            QCoreApplication::postEvent(m_processor, new ShutdownEvent);
    }
    // Without a sleep: the host's own thread has nothing else to do, and its unloading goes on at once.
    while (!m_finished) { }
}

void NetworkThread::run()
{
    NetworkProcessor processor(m_callbacks);
    setProcessor(&processor);
    HttpManager manager; // begin() need not wait for it, as requests wait for the event loop
    processor.setManager(manager);
    exec();
    setProcessor(nullptr);
    m_finished = true;
}

void NetworkThread::setProcessor(NetworkProcessor *processor)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_processor = processor;
    m_processorMade.notify_all();
}
