#include "unixsignals.h"

#include "exitstatus.h"

#include <QtCore/QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr unsigned graceSeconds = 2;

volatile std::sig_atomic_t writeEnd = -1;
volatile std::sig_atomic_t lastNumber = 0;

// The self-pipe way: what has to be done is not safe here (signal-safety(7)).
void remember(int number)
{
    const int savedError = errno;
    lastNumber = number;
    const auto byte = static_cast<unsigned char>(number);
    if (write(writeEnd, &byte, 1) < 0) {
        // The pipe is full of signals already.
    }
    alarm(graceSeconds);
    errno = savedError;
}

void endAtOnce(int)
{
    _exit(ExitStatus::signalBase + lastNumber);
}

} // namespace

UnixSignals::UnixSignals(QObject *parent)
    : QObject(parent)
{
    if (pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = m_pipe[1];
    auto *notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &UnixSignals::read);
    std::signal(SIGINT, remember);
    std::signal(SIGTERM, remember);
    std::signal(SIGALRM, endAtOnce);
}

UnixSignals::~UnixSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    alarm(0);
    std::signal(SIGALRM, SIG_DFL);
    for (const int end : m_pipe) {
        if (end >= 0)
            close(end);
    }
}

void UnixSignals::read()
{
    unsigned char byte = 0;
    while (::read(m_pipe[0], &byte, 1) == 1)
        emit received(byte);
}
