#pragma once

#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <stop_token>

/// The only way in which child processes are run. Both operations block the calling thread until the
/// child has exited and everything that it wrote has been taken; the child belongs to that thread.
/// Arguments go to the executable as they are, one by one; standard input is inherited.
///
/// A termination status other than 0 is a result, never an error. A child that died by a signal has
/// 128 plus the signal's number, as a shell reports it.
namespace marrowcut::media::ProcessRunner
{

/// Thrown when a child cannot be started: the system's own words.
class LaunchError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct CapturedResult {
    qint32 status = 0;
    QString stdout; ///< all of it as text; empty when it is not valid UTF-8
    QString stderr; ///< likewise, of what came last: a flood is not kept
};

/// How much of a captured child's error output is kept, in bytes.
constexpr qsizetype keptErrorOutput = 1 << 16;

struct Options {
    QString workingDirectory = {};            ///< empty: the program's own
    std::stop_token stop = {};                ///< kills the child; the operation then throws Interrupted
    std::chrono::milliseconds timeLimit = {}; ///< kills the child, which then died by that signal; 0: none
};

/// Runs a child to its end and captures both of its output streams, read at the same time.
/// Throws LaunchError, Interrupted.
CapturedResult run(const QString &executable, const QStringList &arguments, const Options &options = {});

/// Runs a child and hands over each line of its error output as it comes (see LineSplitter), on the
/// calling thread. Every line has been handed over when this returns. Standard output is discarded.
/// Returns the termination status. Throws LaunchError, Interrupted.
qint32 runStreaming(const QString &executable, const QStringList &arguments,
                    const std::function<void(const QString &line)> &onStderrLine,
                    const Options &options = {});

} // namespace marrowcut::media::ProcessRunner
