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
/// A termination status other than 0 is a result, never an error. It is negative for a child that was ended
/// by a signal: minus the signal's number.
namespace marrowcut::media::ProcessRunner
{

/// Thrown when a child cannot be started, with the system's error message.
class LaunchError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct CapturedResult {
    qint32 status = 0;
    QString stdout; ///< its first keptOutput bytes as text; empty when it is not valid UTF-8
    QString stderr; ///< its last keptErrorOutput bytes, likewise
};

/// How much of a captured child's output is kept, in bytes. The rest is read and dropped, so that no clip
/// can make a tool's output exhaust the memory.
constexpr qsizetype keptOutput = 1 << 20;
constexpr qsizetype keptErrorOutput = 1 << 16;

struct Options {
    QString workingDirectory = {}; ///< empty: the program's own
    std::stop_token stop = {};     ///< kills the child; the operation then throws Interrupted
    /// Called for each complete line of the error output of run(), also when it is not kept.
    std::function<void(const QString &line)> onStderrLine = {};
    std::chrono::milliseconds timeLimit = {}; ///< when exceeded, the child is killed; 0 means no limit
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
