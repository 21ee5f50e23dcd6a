#pragma once

#include <QString>

#include <functional>

namespace marrowcut
{
class TerminationSignals;
}

namespace marrowcut::cli
{

/// The program's exit statuses. Scripts rely on the numbers.
enum ExitStatus {
    allDone = 0,          ///< every clip has its proxy
    someFailed = 1,       ///< at least one clip, a named item or the output failed
    nothingToDo = 2,      ///< wrong usage, or no clips in the named items
    toolMissing = 3,      ///< a tool is missing, or the named encoder does not work
    wasInterrupted = 130, ///< ended by a signal
};

/// Prints one line on standard error that begins with the program's name, then the detail's lines, indented.
void printError(const QString &problem, const QString &detail = {});

/// The error message for a system that cannot start a thread.
QString noThreadText();

/// On a termination signal: calls interrupt, prints "Interrupted." on standard error and exits the event loop
/// with wasInterrupted. When interrupt returns false, a thread did not end in time and the process exits at
/// once. Main thread; what interrupt refers to must outlive the signals.
void exitOnSignal(const TerminationSignals &termination, const std::function<bool()> &interrupt);

} // namespace marrowcut::cli
