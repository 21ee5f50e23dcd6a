#pragma once

#include "engine/model/proxy_job.h"

#include <QList>

namespace marrowcut::cli
{

/// Tells the user how a run goes. Each call comes from the main thread.
class Reporter
{
public:
    virtual ~Reporter() = default;

    /// A job has another status than before.
    virtual void statusChanged(const ProxyJob &job) = 0;
    /// Something may have moved: called after every change, not more often than the tools report.
    virtual void progressed(const ProxyJob &runningJob, const QList<ProxyJob> &jobs) = 0;
    /// The run is over.
    virtual void finished(const QList<ProxyJob> &jobs) = 0;
    /// The user broke off.
    virtual void interrupted() = 0;
};

} // namespace marrowcut::cli
