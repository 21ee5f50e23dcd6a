#pragma once

#include "media/encode_job.h"

namespace marrowcut::media
{

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
