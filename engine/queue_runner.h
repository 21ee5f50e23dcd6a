#pragma once

#include "engine/job_list.h"
#include "engine/model/quality_preset.h"
#include "media/encoder_choice.h"
#include "media/encoders.h"

#include <functional>
#include <stop_token>

namespace marrowcut
{

class MainThreadQueue;
struct OutputPaths;

/// One run over the queue, on a background thread: the jobs one after another, each through its
/// pipeline. The job list belongs to the main thread and is touched only there, by way of the queue.
/// Every operation throws Interrupted when the stop is requested or the queue is closed.
class QueueRunner
{
public:
    /// Called on the main thread once a finished job's line was given to the manifest.
    using Recorded = std::function<void(const QUuid &id, const QString &manifestLine)>;

    /// chunkSeconds: length of the pieces of a long clip, and the duration above which it is cut.
    QueueRunner(JobList &jobs, MainThreadQueue &mainThread, media::EncoderChoice &encoderChoice,
                double chunkSeconds, Recorded recorded, std::stop_token stop);

    /// Processes every job that is queued and selected now, in list order.
    void runQueue(QualityPreset preset);

private:
    void processJob(const QUuid &id, QualityPreset preset);
    void processUnfinished(const ProxyJob &job, const OutputPaths &paths, QualityPreset preset);
    media::EncodeResult encode(const media::EncodeJob &encodeJob, const OutputPaths &paths);
    media::EncodeResult encodeWith(const media::VideoEncoder &encoder, const media::EncodeJob &encodeJob,
                                   const OutputPaths &paths);

    void record(const QUuid &id, const OutputPaths &paths, const std::optional<ProbedMetadata> &meta,
                const QString &status);

    QList<QUuid> selectedQueuedIds();
    std::optional<ProxyJob> copyOf(const QUuid &id);
    void setStatus(const QUuid &id, const JobStatus &status);
    void finish(const QUuid &id, const JobStatus &status);
    void fail(const QUuid &id, const QString &message, const QString &detail);
    void postProgress(const QUuid &id, double progress, std::optional<double> etaSeconds);

    JobList &m_jobs;
    MainThreadQueue &m_mainThread;
    media::EncoderChoice &m_encoderChoice;
    const double m_chunkSeconds;
    const Recorded m_recorded;
    const std::stop_token m_stop;
    const media::SystemValues m_system;
};

} // namespace marrowcut
