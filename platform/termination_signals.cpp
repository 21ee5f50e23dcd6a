#include "platform/termination_signals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace marrowcut
{

namespace
{

constexpr std::array handledSignals = {SIGINT, SIGTERM, SIGHUP};

// A handler has no other way to know where to write: signals belong to the process as a whole.
volatile std::sig_atomic_t handlerWriteEnd = -1;

void forwardSignal(int number)
{
    const int savedErrno = errno;
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t written = write(handlerWriteEnd, &byte, 1);
    errno = savedErrno;
}

void setHandler(int number, void (*handler)(int))
{
    struct sigaction action = {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
{
    std::array<int, 2> ends = {-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their default: the program ends, and its child with it
    m_readEnd = ends[0];
    handlerWriteEnd = ends[1];
    auto *notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::readNumber);
    for (const int number : handledSignals)
        setHandler(number, forwardSignal);
}

TerminationSignals::~TerminationSignals()
{
    if (m_readEnd < 0)
        return;
    for (const int number : handledSignals)
        setHandler(number, SIG_DFL);
    close(handlerWriteEnd);
    close(m_readEnd);
}

void TerminationSignals::readNumber()
{
    unsigned char number = 0;
    if (read(m_readEnd, &number, 1) == 1)
        Q_EMIT received(number);
}

} // namespace marrowcut
