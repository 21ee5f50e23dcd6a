#pragma once

#include "engine/model/proxy_job.h"

namespace marrowcut
{

/// What a person can do about a failed job, in a sentence or two; empty where its error detail gives no
/// known reason. Pure: it depends on the job alone, so that it is the same whenever it is read.
QString failureAdvice(const ProxyJob &job);

/// The error detail without ffmpeg's statistics lines, for showing: what remains is what went wrong.
QString errorMessages(const ProxyJob &job);

} // namespace marrowcut
