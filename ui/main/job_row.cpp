#include "ui/main/job_row.h"

#include "engine/model/remaining_time_text.h"

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
    const QString detail = job.errorDetail.value_or(QString()).trimmed();
    return detail.mid(detail.lastIndexOf(QLatin1Char('\n')) + 1).trimmed();
}

QString accessibleText(const ProxyJob &job)
{
    const QString text = job.fileName() + QStringLiteral(", ") + job.status.label();
    return job.status.isEncoding() ? text + QStringLiteral(", ") + percentText(job.progress) : text;
}

} // namespace marrowcut::JobRow
