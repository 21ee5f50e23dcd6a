#pragma once

#include "engine/model/probed_metadata.h"

#include <QString>

#include <optional>

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

} // namespace marrowcut::media
