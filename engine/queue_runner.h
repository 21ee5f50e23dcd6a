#pragma once

#include "engine/job_list.h"
#include "engine/model/quality_preset.h"
#include "media/encoder_choice.h"
#include "media/encoders.h"

#include <functional>
#include <optional>
#include <stop_token>

namespace marrowcut
{

class MainThreadQueue;

/// One run over the queue, on a background thread: the jobs one after another, each through its
/// pipeline. The job list belongs to the main thread and is touched only there, by way of the queue.
/// Every operation throws Interrupted when a stop is requested or the queue is closed.
class QueueRunner
{
public:
    /// Callbacks to the engine, on the main thread and in order.
    struct Observer {
        /// A finished job's line was given to the manifest.
        std::function<void(const QUuid &id, const QString &manifestLine,
                           const std::optional<media::ProbedMetadata> &meta)>
            recorded;
        /// The job has waited for a second for another process that holds its clip; nothing: no job waits.
        std::function<void(const std::optional<QUuid> &id)> waiting;
    };

    /// The list, the queue and the choice must outlive every piece of work that is handed to the queue.
    /// chunkSeconds: length of the pieces of a long clip, and the duration above which it is cut.
    QueueRunner(JobList &jobs, MainThreadQueue &mainThread, media::EncoderChoice &encoderChoice,
                double chunkSeconds, Observer observer, std::stop_token stop);

    /// Processes these jobs in order; those that are removed before their turn are left out.
    void runQueue(const QList<QUuid> &ids, QualityPreset preset);

private:
    void processJob(const QUuid &id, QualityPreset preset);
    void endWithoutMemory(const QUuid &id);
    bool skipIfDone(const QUuid &id, const OutputPaths &paths);
    void processUnfinished(const ProxyJob &job, const OutputPaths &paths, const QString &folderProblem,
                           QualityPreset preset);
    media::EncodeResult encode(const media::EncodeJob &encodeJob, const QString &folderProblem);
    media::EncodeResult encodeWithBest(const media::EncodeJob &encodeJob);
    media::EncodeResult encodeWith(const media::VideoEncoder &encoder, const media::EncodeJob &encodeJob);

    void finishAndRecord(const QUuid &id, const OutputPaths &paths, const media::ProbedMetadata &meta,
                         const media::EncodeResult &result);
    void record(const QUuid &id, const OutputPaths &paths, const std::optional<media::ProbedMetadata> &meta,
                const QString &status);

    std::optional<ProxyJob> copyOf(const QUuid &id);
    void setStatus(const QUuid &id, const JobStatus &status);
    void finish(const QUuid &id, const JobStatus &status);
    void fail(const QUuid &id, const QString &message, const QString &detail);
    void postProgress(const QUuid &id, double progress, std::optional<double> etaSeconds);
    void postWaiting(const std::optional<QUuid> &id);

    JobList &m_jobs;
    MainThreadQueue &m_mainThread;
    media::EncoderChoice &m_encoderChoice;
    const double m_chunkSeconds;
    const Observer m_observer;
    const std::stop_token m_stop;
    const media::SystemValues m_system;
};

} // namespace marrowcut
