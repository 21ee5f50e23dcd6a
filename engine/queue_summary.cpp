#include "engine/queue_summary.h"

namespace marrowcut
{

QueueSummary QueueSummary::of(const QList<ProxyJob> &jobs)
{
    QueueSummary summary;
    double shares = 0;
    for (const ProxyJob &job : jobs) {
        summary.doneCount += job.status.isSuccessful();
        summary.failedCount += job.status.isFailed();
        summary.queuedCount += job.status.isQueued();
        summary.selectedQueuedCount += job.isSelectedAndQueued();
        shares += job.status.isFinished() ? 1.0 : job.progress;
    }
    summary.jobCount = jobs.size();
    if (summary.jobCount > 0)
        summary.overallProgress = shares / static_cast<double>(summary.jobCount);
    return summary;
}

QString QueueSummary::doneText() const
{
    return QStringLiteral("%1 of %2 done").arg(doneCount).arg(jobCount);
}

QString QueueSummary::completionText() const
{
    if (failedCount > 0)
        return QStringLiteral("%1 done, %2 failed.").arg(doneCount).arg(failedCount);
    return QStringLiteral("%1 file%2 done.")
        .arg(doneCount)
        .arg(doneCount == 1 ? QString() : QStringLiteral("s"));
}

} // namespace marrowcut
