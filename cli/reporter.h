#pragma once

#include "engine/model/proxy_job.h"
#include "engine/video_files.h"

#include <QList>

namespace marrowcut::cli
{

/// Tells the user how a run goes. Each call comes from the main thread.
class Reporter
{
public:
    virtual ~Reporter() = default;

    /// An item that was named gives no clip. Before everything else; by default on standard error.
    virtual void refused(const RefusedItem &item);
    /// A job takes part in the run. Once for each, before the run begins.
    virtual void queued(const ProxyJob &) {}
    /// A job has another status than before.
    virtual void statusChanged(const ProxyJob &job) = 0;
    /// Something may have moved: called after every change, not more often than the tools report.
    virtual void progressed(const ProxyJob &runningJob, const QList<ProxyJob> &jobs) = 0;
    /// A job that was done or failed has its line, line feed included, in the manifest.
    virtual void recorded(const ProxyJob &, const QString & /*manifestLine*/) {}
    /// The run is over.
    virtual void finished(const QList<ProxyJob> &jobs) = 0;
    /// The user broke off.
    virtual void interrupted() = 0;
};

} // namespace marrowcut::cli
