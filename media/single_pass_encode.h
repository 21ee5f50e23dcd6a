#pragma once

#include "media/encode_job.h"

namespace marrowcut::media
{

/// Encodes a clip with one run of ffmpeg into tmpOutput and, on success, moves that to finalOutput,
/// in the same folder. Blocks; not for the main thread. A failed run leaves neither file behind.
/// Throws Interrupted only.
EncodeResult runSinglePass(const EncodeJob &job, const QString &finalOutput, const QString &tmpOutput,
                           const EncodeContext &context);

} // namespace marrowcut::media
