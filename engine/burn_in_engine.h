#pragma once

#include "engine/job_list.h"
#include "engine/model/proxy_job.h"
#include "engine/model/quality_preset.h"
#include "engine/video_files.h"
#include "media/encoder_choice.h"
#include "platform/background_thread.h"
#include "platform/main_thread_queue.h"

#include <QObject>

#include <chrono>

namespace marrowcut
{

class NotificationCenter;
class PreferenceStore;

/// Holds the queue and runs it. Main thread only; its own background work comes back there.
///
/// The published state is jobs(), isRunning() and qualityPreset(). Every assignment and every edit of
/// one field of one job is announced once by willChange(), before it is applied: a slot that reads the
/// state sees the old value and has to read it again later, from the event loop. Slots must not edit.
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

    /// Instead of the best encoder that works. Before the first run.
    void setEncoderChoice(media::EncoderChoice choice) { m_encoderChoice = std::move(choice); }

    bool hasQueuedJobs() const;
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

    /// Begins a run over the jobs that are queued and selected, with the preset of this moment, and
    /// returns at once. Nothing when a run is going on, there is no such job, or the system has no thread
    /// to give; isRunning() tells.
    virtual void start();

    /// For quitting: ends the running tool at once and leaves every file as it is. Waits for the run's
    /// thread, up to the limit, and returns whether it has ended; it always does unless the system
    /// itself hangs. No run can be started afterwards, and no more edits come.
    bool interrupt(std::chrono::milliseconds limit);

Q_SIGNALS:
    void willChange();
    /// A job that was probed or encoded is finished, and this line, its line feed included, was given
    /// to the manifest. Comes after the edits that finished the job, before any of the next one.
    void recorded(const QUuid &id, const QString &manifestLine);

protected:
    /// For a subclass that stages jobs in any state.
    JobList &jobList() { return m_jobs; }
    void setRunning(bool isRunning);

private:
    void run(QualityPreset preset, const std::stop_token &stop);
    void finishRun();
    void notifyCompletion();

    PreferenceStore &m_preferences;
    NotificationCenter &m_notifications;
    JobList m_jobs;
    bool m_isRunning = false;
    QualityPreset m_qualityPreset;
    media::EncoderChoice m_encoderChoice; ///< the run's thread's while there is one
    MainThreadQueue m_mainThread;
    BackgroundThread m_runThread;
};

} // namespace marrowcut
