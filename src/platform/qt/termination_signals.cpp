#include "platform/qt/termination_signals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace quenoria {

namespace {

constexpr int exitCodeBase = 128;

// All that a signal handler may touch: a flag, and a pipe that the event loop reads.
volatile std::sig_atomic_t isRequested = 0;
std::array<int, 2> signalPipe{-1, -1};

void handle(int signal)
{
    if (isRequested)
        _exit(exitCodeBase + signal);
    isRequested = 1;
    const auto number = static_cast<unsigned char>(signal);
    if (::write(signalPipe[1], &number, 1) != 1)
        _exit(exitCodeBase + signal);
}

/// A signal that was ignored when the process started stays ignored: so nohup asks for it.
void listenTo(int signal)
{
    struct sigaction action = {};
    if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::read);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        listenTo(signal);
}

void TerminationSignals::rearm() { isRequested = 0; }

void TerminationSignals::read()
{
    unsigned char number = 0;
    if (::read(signalPipe[0], &number, 1) == 1)
        Q_EMIT received(exitCodeBase + number);
}

} // namespace quenoria
