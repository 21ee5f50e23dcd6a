#pragma once

#include "command_line.h"
#include "encoder_request.h"
#include "engine/burn_in_engine.h"
#include "reporter.h"

#include <QObject>

#include <memory>

namespace marrowcut::cli
{

/// One run of the engine without a window: queues what was asked for, runs it, reports, and says with
/// which status the program should end. Main thread; needs a running event loop.
class HeadlessRun : public QObject
{
    Q_OBJECT
public:
    HeadlessRun(PreferenceStore &preferences, NotificationCenter &notifications, const Request &request);

    /// Queues the items and tells of those that give no clip. False when there is nothing to do.
    bool queueItems();
    /// Returns at once; the encoder that was asked for makes its trial first.
    void start();
    /// Breaks off. Returns whether the threads have ended in time.
    bool interrupt();

Q_SIGNALS:
    /// Instead of ended().
    void couldNotStart(const QString &problem, int exitStatus);
    void ended(int exitStatus);

private:
    void begin(const EncoderAnswer &encoder);
    void scheduleRefresh();
    void refresh();
    void reportJobs();
    void reportRecorded(const QUuid &id, const QString &manifestLine);
    void tellRefused(const QList<RefusedItem> &refused);

    Request m_request;
    BurnInEngine m_engine;
    std::unique_ptr<Reporter> m_reporter;
    QList<JobStatus> m_reportedStatuses; ///< one per job, as last told
    qsizetype m_firstUnfinished = 0;     ///< all jobs before have been told to the end
    bool m_refreshScheduled = false;
    bool m_running = false;
    bool m_itemFailed = false;
    EncoderQuestion m_question; // last: its thread ends before anything else goes
};

} // namespace marrowcut::cli
