#include "engine/completion_notification.h"

#include <QUuid>

#include <algorithm>

namespace marrowcut
{

QString completionBody(qsizetype doneCount, qsizetype failedCount)
{
    if (failedCount > 0)
        return QStringLiteral("%1 done, %2 failed.").arg(doneCount).arg(failedCount);
    return QStringLiteral("%1 file%2 done.")
        .arg(doneCount)
        .arg(doneCount == 1 ? QString() : QStringLiteral("s"));
}

NotificationRequest completionNotification(const QList<ProxyJob> &jobs)
{
    const auto count = [&jobs](bool (JobStatus::*matches)() const) {
        return std::count_if(jobs.begin(), jobs.end(),
                             [matches](const ProxyJob &job) { return (job.status.*matches)(); });
    };
    return {QUuid::createUuid().toString(QUuid::WithoutBraces), QStringLiteral("Marrowcut"),
            completionBody(count(&JobStatus::isSuccessful), count(&JobStatus::isFailed))};
}

} // namespace marrowcut
