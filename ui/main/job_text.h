#pragma once

#include "engine/model/proxy_job.h"

/// What a row of the job list shows of its job. Pure.
namespace marrowcut::JobText
{

/// A file name or path on one line: control characters are replaced by visible ones.
QString oneLine(const QString &text);

/// What the progress bar shows, 0.0 to 1.0: full once the proxy is there, whatever was reached before.
double barValue(const ProxyJob &job);

/// "· 1m left" while encoding with more than a second to go; else empty.
QString remainingTime(const ProxyJob &job);

/// The advice and the error messages of a failed job, separated by an empty line.
QString failureText(const ProxyJob &job);

/// Why a job keeps waiting although its turn has come.
QString waitingText();

/// File name, status label and failureText() of a failed job, complete enough for an email.
QString failureReport(const ProxyJob &job);

/// For screen readers, such as "A001.mxf, Encoding…, 40 percent".
QString accessibleName(const ProxyJob &job);

/// For screen readers: the remaining time, or what to do about a failure.
QString accessibleDescription(const ProxyJob &job);

} // namespace marrowcut::JobText
