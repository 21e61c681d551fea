#include "unixsignals.h"

#include "exitstatus.h"

#include <QtCore/QSocketNotifier>

#include <cerrno>
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
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        handle(number, remember);
    handle(SIGALRM, endAtOnce);
}

UnixSignals::~UnixSignals()
{
    for (const auto &[number, before] : m_before) {
        alarm(0); // which the signals that are yet to be given back may have set
        sigaction(number, &before, nullptr);
    }
    for (const int end : m_pipe) {
        if (end >= 0)
            close(end);
    }
}

void UnixSignals::handle(int number, void (*handler)(int))
{
    struct sigaction before = {};
    struct sigaction now = {};
    now.sa_handler = handler;
    now.sa_flags = SA_RESTART;
    if (sigaction(number, nullptr, &before) != 0 || (before.sa_handler == SIG_IGN && number != SIGALRM))
        return;
    sigaction(number, &now, nullptr);
    m_before.emplace_back(number, before);
}

void UnixSignals::read()
{
    unsigned char byte = 0;
    while (::read(m_pipe[0], &byte, 1) == 1)
        emit received(byte);
}
