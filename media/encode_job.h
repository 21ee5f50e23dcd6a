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

} // namespace marrowcut::media
