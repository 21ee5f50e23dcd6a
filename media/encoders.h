#pragma once

#include "engine/model/probed_metadata.h"
#include "engine/model/quality_preset.h"
#include "media/system_values.h"

#include <QString>
#include <QUuid>

#include <functional>
#include <optional>
#include <stop_token>

namespace marrowcut::media
{

/// What is to be encoded, and how.
struct EncodeJob {
    QString source; ///< absolute path
    ProbedMetadata meta;
    QUuid jobId;
    QualityPreset preset;
    bool burnInEnabled = true;
};

/// Takes an encode's progress: a fraction, and the seconds that remain where they are known.
/// Called on the thread that encodes; every call comes before the encoder returns.
using PublishProgress =
    std::function<void(const QUuid &jobId, double progress, std::optional<double> etaSeconds)>;

/// What an encoder works with. stop ends the running tool at once and makes the encoder throw
/// Interrupted, with every file left as it is.
struct EncodeContext {
    SystemValues system;
    PublishProgress publish;
    std::stop_token stop;
};

struct EncodeResult {
    bool success = false;
    QString stderrTail; ///< the last lines of the tools' error output
};

/// Encodes a clip with one run of ffmpeg into tmpOutput and, on success, moves that to finalOutput,
/// in the same folder. Blocks; not for the main thread. A failed run leaves neither file behind.
/// Throws Interrupted only.
EncodeResult runSinglePass(const EncodeJob &job, const QString &finalOutput, const QString &tmpOutput,
                           const EncodeContext &context);

/// Number of pieces of at most chunkSeconds that a duration takes; at least 1. A double: it is
/// used for fractions only, and an absurd duration must not overflow it.
double pieceCount(double duration, double chunkSeconds);

/// Encodes a clip as consecutive pieces of at most chunkSeconds into a hidden work folder in outDir,
/// joins them without encoding again and moves the result to finalOutput. Blocks; not for the main
/// thread. A failed run leaves its work folder; the next run of the same clip replaces it.
/// Throws Interrupted only.
EncodeResult runChunked(const EncodeJob &job, const QString &outDir, const QString &finalOutput,
                        double chunkSeconds, const EncodeContext &context);

} // namespace marrowcut::media
