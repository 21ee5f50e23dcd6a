#pragma once

#include "engine/model/proxy_job.h"

#include <QList>
#include <QString>

namespace marrowcut
{

/// Counts over the whole job list.
struct QueueSummary {
    qsizetype jobCount = 0;
    qsizetype doneCount = 0; ///< done or skipped
    qsizetype failedCount = 0;
    qsizetype queuedCount = 0;
    qsizetype selectedQueuedCount = 0;
    double overallProgress = 0; ///< mean over all jobs; a finished job counts as 1.0

    /// False when no job is queued.
    bool allQueuedSelected() const { return queuedCount > 0 && selectedQueuedCount == queuedCount; }

    /// Such as "3 of 5 done".
    QString doneText() const;
    /// What the notification at the end of a run says: "3 done, 1 failed." when anything failed, else
    /// "1 file done.", "12 files done.".
    QString completionText() const;

    bool operator==(const QueueSummary &) const = default;

    static QueueSummary of(const QList<ProxyJob> &jobs);
};

} // namespace marrowcut
