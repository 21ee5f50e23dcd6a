#include "platform/process_setup.h"

#include <QProcess>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <langinfo.h>
#include <string_view>
#include <sys/prctl.h>
#include <unistd.h>

namespace marrowcut
{

namespace
{

void detachStandardInput()
{
    const int null = open("/dev/null", O_RDONLY);
    if (null < 0)
        return;
    dup2(null, STDIN_FILENO);
    if (null != STDIN_FILENO)
        close(null);
}

void ensureUtf8Locale()
{
    setlocale(LC_ALL, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8")
        setenv("LC_ALL", "C.UTF-8", 1);
}

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

void setUpProcess()
{
    detachStandardInput();
    ensureUtf8Locale();
}

void guardChild(QProcess &process)
{
    // Runs between fork and exec: async-signal-safe calls only.
    process.setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) // died before the line above took effect
            _exit(127);

        sigset_t groupSignals;
        sigemptyset(&groupSignals);
        for (const int signal : {SIGINT, SIGQUIT, SIGHUP, SIGTERM})
            sigaddset(&groupSignals, signal);
        sigprocmask(SIG_BLOCK, &groupSignals, nullptr);
    });
}

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
