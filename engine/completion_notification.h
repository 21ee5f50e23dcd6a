#pragma once

#include "engine/model/proxy_job.h"
#include "platform/notification_center.h"

#include <QList>
#include <QString>

namespace marrowcut
{

/// "3 done, 1 failed." when anything failed, else "1 file done.", "12 files done.".
QString completionBody(qsizetype doneCount, qsizetype failedCount);

/// The notification for the end of a run, counted over all jobs that are listed.
NotificationRequest completionNotification(const QList<ProxyJob> &jobs);

} // namespace marrowcut
