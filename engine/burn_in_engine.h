#pragma once

#include "engine/job_list.h"
#include "engine/model/proxy_job.h"
#include "engine/model/quality_preset.h"
#include "engine/video_files.h"
#include "media/encoder_choice.h"
#include "media/probe.h"
#include "platform/background_thread.h"
#include "platform/main_thread_queue.h"

#include <QObject>

#include <chrono>
#include <optional>

namespace marrowcut
{

class NotificationCenter;
class PreferenceStore;

/// Holds the queue and runs it. Main thread only.
///
/// The published state is jobs(), isRunning() and qualityPreset(). Every assignment and every edit of
/// one field of one job is announced once by willChange(), before it is applied: a slot sees the old value
/// and has to read the state again later, from the event loop. Slots must not edit.
/// Every operation is accepted at any time, also while a run is going on.
class BurnInEngine : public QObject
{
    Q_OBJECT
public:
    /// Length of the pieces of a long clip, and the duration above which a clip is cut into them.
    static constexpr double chunkSeconds = 90.0;

    /// The store and the center must outlive the engine.
    BurnInEngine(PreferenceStore &preferences, NotificationCenter &notifications, QObject *parent = nullptr);
    /// Interrupts a run as interrupt() does, and waits for its end.
    ~BurnInEngine() override;

    const QList<ProxyJob> &jobs() const { return m_jobs.jobs(); }
    bool isRunning() const { return m_isRunning; }
    QualityPreset qualityPreset() const { return m_qualityPreset; }
    /// Also remembers the preset, for this and later runs of the program.
    void setQualityPreset(QualityPreset preset);

    /// Replaces the default choice, the best encoder that works. Before the first run only.
    void setEncoderChoice(media::EncoderChoice choice) { m_encoderChoice = std::move(choice); }

    bool hasSelectedQueuedJobs() const;

    /// Adds one job for each video file that the files and folders stand for and that is not listed
    /// yet. Returns the items that gave none.
    QList<RefusedItem> enqueue(const QList<QUrl> &urls, Subfolders subfolders = Subfolders::skip);
    /// Only a queued job is removed.
    void removeFromQueue(QUuid id);
    /// Queued jobs only; one edit for each.
    void setAllSelected(bool selected);
    void toggleSelected(QUuid id);
    void toggleBurnIn(QUuid id);
    /// Puts a job back into the queue, whatever its status.
    void retry(QUuid id);
    /// Removes every job that is done, skipped or failed.
    void clearCompleted();

    /// Starts a run over the jobs that are queued and selected now, with the preset of now, and returns at
    /// once. Does nothing during a run. Afterwards isRunning() is false where there is no such job or no
    /// thread can be started.
    virtual void start();

    /// The job whose turn it is and whose clip another Marrowcut has held for more than a second. It keeps
    /// its status. Changes are announced by willChange().
    std::optional<QUuid> waitingJob() const { return m_waitingJob; }

    /// For quitting: ends the running tool at once and leaves every file as it is. Waits for the run's
    /// thread, up to the limit, and returns whether it has ended; only a system call that hangs, or another
    /// program's lock on the manifest, holds it. No run and no edit can follow.
    bool interrupt(std::chrono::milliseconds limit = quitLimit);

Q_SIGNALS:
    void willChange();
    /// A job that was probed or encoded is finished, and this line, its line feed included, was given
    /// to the manifest; meta is absent when the probe failed. Emitted after the edits that finished the job,
    /// before any of the next one.
    void recorded(const QUuid &id, const QString &manifestLine,
                  const std::optional<media::ProbedMetadata> &meta);

protected:
    /// For a subclass that stages jobs in any state.
    JobList &jobList() { return m_jobs; }
    void setRunning(bool isRunning);
    void setWaitingJob(const std::optional<QUuid> &id);

private:
    void run(const QList<QUuid> &ids, QualityPreset preset, const std::stop_token &stop);
    void notifyCompletion();

    PreferenceStore &m_preferences;
    NotificationCenter &m_notifications;
    JobList m_jobs;
    bool m_isRunning = false;
    std::optional<QUuid> m_waitingJob;
    QualityPreset m_qualityPreset;
    media::EncoderChoice m_encoderChoice; ///< used by the run's thread alone while there is one
    MainThreadQueue m_mainThread;
    BackgroundThread m_runThread;
};

} // namespace marrowcut
