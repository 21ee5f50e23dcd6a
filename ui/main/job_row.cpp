#include "ui/main/job_row.h"

#include "engine/failure_advice.h"
#include "engine/model/proxy_job.h"

#include <algorithm>

namespace marrowcut::JobRow
{

namespace
{

/// Rounded down: 100 is said only of what is complete.
QString percentText(double fraction)
{
    return QStringLiteral("%1 percent").arg(static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100));
}

QString detailOf(const ProxyJob &job)
{
    return job.errorDetail.value_or(QString()).trimmed();
}

QString joined(QStringList texts, const QString &separator)
{
    texts.removeAll(QString());
    return texts.join(separator);
}

} // namespace

double barValue(const ProxyJob &job)
{
    return job.status.isSuccessful() ? 1.0 : job.progress;
}

QString etaText(const ProxyJob &job)
{
    if (!job.status.isEncoding() || !(job.etaSeconds.value_or(0) > 1.0))
        return QString();
    const QString remaining = formatETA(*job.etaSeconds);
    return remaining.isEmpty() ? QString() : QStringLiteral("· ") + remaining;
}

QString errorText(const ProxyJob &job)
{
    return joined({failureAdvice(job), detailOf(job)}, QStringLiteral("\n\n"));
}

QString errorSummary(const ProxyJob &job)
{
    const QString advice = failureAdvice(job);
    return advice.isEmpty() ? detailOf(job).section(QLatin1Char('\n'), -1).trimmed() : advice;
}

QString errorReport(const ProxyJob &job)
{
    const QString heading = job.fileName() + QLatin1Char('\n') + job.status.label();
    return joined({heading, errorText(job)}, QStringLiteral("\n\n"));
}

QString accessibleText(const ProxyJob &job)
{
    const QString text = job.fileName() + QStringLiteral(", ") + job.status.label();
    return job.status.isEncoding() ? text + QStringLiteral(", ") + percentText(job.progress) : text;
}

} // namespace marrowcut::JobRow
