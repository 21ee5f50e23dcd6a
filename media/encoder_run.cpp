#include "media/encoder_run.h"

#include "media/error_output.h"
#include "media/failure_messages.h"
#include "media/ffmpeg_locator.h"
#include "media/output_files.h"

#include <cstring>

namespace marrowcut::media
{

namespace
{

QString signalMessage(int signal)
{
    const char *name = sigdescr_np(signal);
    return endedBySignal + QStringLiteral("%1 (%2).").arg(signal).arg(QLatin1String(name ? name : "unknown"));
}

/// At the end of a line only: the words can also be part of a clip's path.
bool isReadError(const QString &line)
{
    return line.endsWith(QLatin1String("Input/output error"));
}

bool checkResult(qint32 status, bool readError, const QString &output, StderrTail &tail)
{
    if (status < 0)
        tail.append(signalMessage(-status));
    if (status != 0 || readError)
        return false;
    const bool finished = isFinishedMp4(output);
    if (!finished)
        tail.append(incompleteOutput);
    return finished;
}

} // namespace

EncoderRun runEncoder(const QStringList &arguments, const QString &output, StderrTail &tail,
                      const std::function<void(const QString &)> &onLine,
                      const ProcessRunner::Options &options)
{
    EncoderRun run;
    bool readError = false;
    const auto takeLine = [&](const QString &line) {
        tail.append(line);
        readError = readError || isReadError(line);
        if (const auto count = parseFrameCount(line))
            run.frameCount = count;
        run.hasSound = run.hasSound || parseTimeSeconds(line).value_or(0) > 0;
        onLine(line);
    };
    try {
        const qint32 status =
            ProcessRunner::runStreaming(FFmpegLocator::ffmpegPath(), arguments, takeLine, options);
        run.success = checkResult(status, readError, output, tail);
    } catch (const ProcessRunner::LaunchError &) { // no success
    }
    return run;
}

bool runJoin(const QStringList &arguments, const QString &output, StderrTail &tail,
             ProcessRunner::Options options)
{
    bool readError = false;
    options.onStderrLine = [&readError](const QString &line) {
        // A part that cannot be opened ends the join early, with exit status 0.
        readError = readError || isReadError(line) || line.contains(QLatin1String("Impossible to open '"));
    };
    try {
        const auto result = ProcessRunner::run(FFmpegLocator::ffmpegPath(), arguments, options);
        tail.append(result.stderr);
        return checkResult(result.status, readError, output, tail);
    } catch (const ProcessRunner::LaunchError &) {
        return false;
    }
}

bool publishOutput(const QString &finished, const QString &finalPath, StderrTail &tail)
{
    const QString problem = moveIntoPlace(finished, finalPath);
    if (!problem.isEmpty())
        tail.append(problem);
    return problem.isEmpty();
}

} // namespace marrowcut::media
