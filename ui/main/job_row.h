#pragma once

#include "engine/model/proxy_job.h"

/// What a row of the job list shows of its job. Pure.
namespace marrowcut::JobRow
{

/// What the progress bar shows, 0.0 to 1.0: full for what is there, whatever was reached otherwise.
double barValue(const ProxyJob &job);

/// "· 1m left" while encoding with more than a second to go; else empty.
QString etaText(const ProxyJob &job);

/// What can be done about a failure and what the tools said of it, with an empty line between them.
QString errorText(const ProxyJob &job);

/// The first of these that there is, as one line: the advice, the last line of the tools.
QString errorSummary(const ProxyJob &job);

/// Name, status and error of a failed job, complete enough for an email.
QString errorReport(const ProxyJob &job);

/// The whole row in words, such as "A001.mxf, Encoding…, 40 percent".
QString accessibleText(const ProxyJob &job);

} // namespace marrowcut::JobRow
