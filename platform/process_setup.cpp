#include "platform/process_setup.h"

#include <QProcess>

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

} // namespace marrowcut
