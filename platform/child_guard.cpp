#include "platform/child_guard.h"

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace marrowcut
{

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

} // namespace marrowcut
