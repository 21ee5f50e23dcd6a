#pragma once

#include "command_line.h"
#include "encoder_option.h"
#include "reporter.h"

#include "engine/burn_in_engine.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace marrowcut::cli
{

/// One run of the engine without a window: queues the requested items, runs the queue, reports, and ends with
/// the program's exit status. Main thread; needs a running event loop.
class HeadlessRun : public QObject
{
    Q_OBJECT
public:
    HeadlessRun(PreferenceStore &preferences, NotificationCenter &notifications, const Request &request);

    /// Queues the items and reports those that give no clip. False when no clip was queued; ended() is not
    /// emitted then.
    bool queueItems();
    /// Whether a named item counts as a failure of the run.
    bool itemFailed() const { return m_itemFailed; }
    /// Starts the run and returns at once. A hardware encoder that was named does its test encode first.
    void start();
    /// Ends the run at once and leaves all files as they are. Returns whether the threads ended in time.
    bool interrupt();

Q_SIGNALS:
    void ended(int exitStatus);

private:
    void begin(const std::optional<EncoderResult> &encoder);
    void end(int exitStatus, const QString &problem, const QString &detail = {});
    void scheduleRefresh();
    void refresh();
    void reportChanges();
    void redraw();
    void reportWaiting();
    void reportRecorded(const QUuid &id, const QString &manifestLine,
                        const std::optional<media::ProbedMetadata> &meta);
    void reportRefused(const QList<RefusedItem> &refused);

    Request m_request;
    BurnInEngine m_engine;
    std::unique_ptr<Reporter> m_reporter;
    QTimer m_redrawTimer;
    qsizetype m_current = 0;                          ///< index of the first job that is not finished
    JobStatus m_reportedStatus = JobStatus::queued(); ///< of that job
    std::optional<QUuid> m_reportedWaiting;
    bool m_refreshScheduled = false;
    bool m_running = false;
    bool m_itemFailed = false;
    EncoderQuery m_encoderQuery;
};

} // namespace marrowcut::cli
