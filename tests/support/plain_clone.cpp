// For the thread sanitizer only. QProcess starts its child with a clone() that shares memory until the
// exec; the sanitizer takes what happens there for the parent's own doing and loses track of the starting
// thread. Here the child gets memory of its own.

#include <cstdarg>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" int clone(int (*function)(void *), void *, int flags, void *argument, ...)
{
    va_list rest;
    va_start(rest, argument);
    void *const parentTid = va_arg(rest, void *);
    va_end(rest);

    const long pid =
        syscall(SYS_clone, flags & ~(CLONE_VM | CLONE_VFORK), nullptr, parentTid, nullptr, nullptr);
    if (pid == 0)
        _exit(function(argument));
    return static_cast<int>(pid);
}
