#pragma once

#include "media/error_output.h"
#include "media/process_runner.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace marrowcut::media
{

/// How one run of ffmpeg ended.
struct EncoderRun {
    bool success = false;             ///< it ended without an error and left a whole MP4
    std::optional<qint64> frameCount; ///< from its statistics
    bool hasSound = false;            ///< its output has a duration
};

/// Runs ffmpeg to write output. Every line of its error output is appended to the tail, then passed to
/// onLine; a failure that ffmpeg does not name itself is named in the tail's last line. ffmpeg exits with 0
/// although the source could not be read to its end or the disk was full at the last bytes: both count as
/// failures. Throws Interrupted only.
EncoderRun runEncoder(const QStringList &arguments, const QString &output, StderrTail &tail,
                      const std::function<void(const QString &line)> &onLine,
                      const ProcessRunner::Options &options);

/// Likewise for joining parts: the error output is appended when ffmpeg has ended.
bool runJoin(const QStringList &arguments, const QString &output, StderrTail &tail,
             ProcessRunner::Options options);

/// Moves a finished file to the final path. When that fails, the reason is appended to the tail.
bool publishOutput(const QString &finished, const QString &finalPath, StderrTail &tail);

} // namespace marrowcut::media
