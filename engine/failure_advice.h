#pragma once

#include "engine/model/proxy_job.h"

namespace marrowcut
{

/// What a person can do about a failed job, in a sentence or two; empty where its detail does not tell.
QString failureAdvice(const ProxyJob &job);

} // namespace marrowcut
