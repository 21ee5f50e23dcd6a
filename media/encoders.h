#pragma once

#include "engine/model/output_paths.h"
#include "engine/model/quality_preset.h"
#include "media/output_files.h"
#include "media/probe.h"
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
    QString source;        ///< absolute path
    FileStamp sourceStamp; ///< as the source was when it was probed
    OutputPaths paths;
    ProbedMetadata meta;
    QUuid jobId;
    QualityPreset preset;
    bool burnInEnabled = true;
};

/// Receives an encode's progress: a fraction, and the remaining seconds where they are known. Called on the
/// encoding thread; every call comes before the encoder returns.
using PublishProgress =
    std::function<void(const QUuid &jobId, double progress, std::optional<double> etaSeconds)>;

/// What an encoder works with. A stop request ends the running tool at once and makes the encoder throw
/// Interrupted, with every file left as it is.
struct EncodeContext {
    SystemValues system;
    PublishProgress publish;
    std::stop_token stop;
};

struct EncodeResult {
    bool success = false;
    /// The last lines of ffmpeg's error output, and below them the encoder's own line where ffmpeg's don't
    /// give the reason for a failure. Empty when ffmpeg could not be started.
    QString stderrTail;
};

/// Both encoders block and are not for the main thread. They throw Interrupted only. The output folder's
/// existence is the caller's concern.

/// Encodes a clip with one run of ffmpeg into the temporary output and moves that to the final output. A
/// failed encode removes the temporary output; only a failed move leaves it.
EncodeResult runSinglePass(const EncodeJob &job, const EncodeContext &context);

/// Encodes a clip as consecutive pieces of at most chunkSeconds in the work folder, joins them without
/// encoding again and moves the result to the final output. A failed run leaves its work folder; the next
/// run of the same clip replaces it.
EncodeResult runChunked(const EncodeJob &job, double chunkSeconds, const EncodeContext &context);

} // namespace marrowcut::media
