// Stands before a tool in the measurement of the program's own cost: runs the tool of its own name from
// PATH and appends to the file named by MARROWCUT_BENCH_LOG when it began and ended, on the monotonic
// clock, and the processor time that it took, all in seconds.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

double now()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

double seconds(const timeval &time)
{
    return double(time.tv_sec) + double(time.tv_usec) / 1e6;
}

const char *nameIn(const char *path)
{
    const char *slash = std::strrchr(path, '/');
    return slash ? slash + 1 : path;
}

void record(double begin, double end, const rusage &usage)
{
    char line[128];
    const int length = std::snprintf(line, sizeof line, "%.6f %.6f %.6f\n", begin, end,
                                     seconds(usage.ru_utime) + seconds(usage.ru_stime));
    const char *path = std::getenv("MARROWCUT_BENCH_LOG");
    const int log = path ? open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644) : -1;
    if (log < 0 || write(log, line, std::size_t(length)) != length)
        std::_Exit(125);
}

} // namespace

int main(int, char *argv[])
{
    const double begin = now();
    pid_t tool = 0;
    if (posix_spawnp(&tool, nameIn(argv[0]), nullptr, nullptr, argv, environ) != 0)
        return 127;
    int status = 0;
    rusage usage = {};
    while (wait4(tool, &status, 0, &usage) < 0 && errno == EINTR) {
    }
    record(begin, now(), usage);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
