#pragma once

#include "engine/model/probed_metadata.h"

#include <QString>

#include <optional>
#include <stop_token>

/// What ffprobe says of a clip. Blocks while ffprobe runs; not for the main thread. A stop request
/// ends the running tool and throws Interrupted; nothing else throws.
namespace marrowcut::media
{

/// The facts that the encoders need; nothing when the clip has no video stream with a frame rate or
/// cannot be read at all.
std::optional<ProbedMetadata> probe(const QString &source, const std::stop_token &stop = {});

/// The text that explains to the user why probe() gave nothing.
QString probeFailureDetail(const QString &source, const std::stop_token &stop = {});

} // namespace marrowcut::media
