#pragma once

#include "network/fetch.h"

#include <QtCore/QThread>

#include <atomic>
#include <condition_variable>
#include <mutex>

class FetchCallbacks;
class NetworkProcessor;

/// The thread that does all fetching and parsing. Its operations belong to the GUI thread.
class NetworkThread : public QThread
{
    Q_OBJECT

public:
    /// Outcomes go to @p callbacks, which has to outlive the thread.
    explicit NetworkThread(FetchCallbacks &callbacks);

    /// Ends the thread if it still runs, and waits until nothing of it is left.
    ~NetworkThread() override;

    /// Starts the thread, and returns when it takes requests. False if the system has no thread to give.
    bool begin();

    /// Whether the thread runs and has not been shut down.
    bool takesRequests();

    /// Has the thread carry out @p request. Does nothing unless it takes requests.
    void post(const FetchRequest &request);

    /// Aborts all fetches and ends the thread's event loop; outcomes of the aborted ones have been posted
    /// when this returns. Does nothing unless it takes requests.
    void shutdown();

protected:
    void run() override;

private:
    void setProcessor(NetworkProcessor *processor);

    FetchCallbacks &m_callbacks;
    std::mutex m_mutex; ///< guards m_processor
    std::condition_variable m_processorMade;
    NetworkProcessor *m_processor = nullptr; ///< run() owns it; null unless it takes requests
    std::atomic<bool> m_finished = true;
};
