#pragma once

#include "engine/model/probed_metadata.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace marrowcut::media
{

/// What ffprobe printed in answer to each query, as it came. Empty where there was no answer.
struct ProbeAnswers {
    QString timecode;
    QString frameRate;
    QString audioStreams; ///< one line per stream
    QString duration;
    QString modificationDate;
    QString creationDate; ///< looked at only when there is no modification date
};

/// The first line that is not empty, without white space at its ends.
QString firstLine(const QString &answer);

/// The facts in the answers, with their defaults; nothing when there is no frame rate. Pure.
std::optional<ProbedMetadata> metadataFrom(const ProbeAnswers &answers);

/// What ffprobe says of a clip. Blocks while ffprobe runs; not for the main thread. A stop request
/// ends the running tool and throws Interrupted; nothing else throws.
/// The facts that the encoders need; nothing when the clip has no video stream with a frame rate or
/// cannot be read at all.
std::optional<ProbedMetadata> probe(const QString &source, const std::stop_token &stop = {});

/// The text that explains to the user why probe() gave nothing.
QString probeFailureDetail(const QString &source, const std::stop_token &stop = {});

} // namespace marrowcut::media
