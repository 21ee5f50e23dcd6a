#include "engine/queue_runner.h"

#include "engine/manifest.h"
#include "engine/output_paths.h"
#include "media/encoders.h"
#include "media/output_files.h"
#include "media/probe.h"
#include "platform/background_thread.h"
#include "platform/folder_lock.h"
#include "platform/main_thread_queue.h"

#include <QDir>
#include <QFileInfo>

namespace marrowcut
{

QueueRunner::QueueRunner(JobList &jobs, MainThreadQueue &mainThread, media::EncoderChoice &encoderChoice,
                         double chunkSeconds, Recorded recorded, std::stop_token stop)
    : m_jobs(jobs)
    , m_mainThread(mainThread)
    , m_encoderChoice(encoderChoice)
    , m_chunkSeconds(chunkSeconds)
    , m_recorded(std::move(recorded))
    , m_stop(std::move(stop))
    , m_system(media::currentSystemValues())
{
}

void QueueRunner::runQueue(QualityPreset preset)
{
    for (const QUuid &id : selectedQueuedIds())
        processJob(id, preset);
}

void QueueRunner::processJob(const QUuid &id, QualityPreset preset)
{
    const std::optional<ProxyJob> job = copyOf(id);
    if (!job)
        return; // removed meanwhile
    const OutputPaths paths = OutputPaths::forSource(job->sourceURL);
    QDir().mkpath(paths.outDir);
    const FolderLock lock(paths.outDir, m_stop); // the window and the command line may run at once
    if (QFileInfo(paths.finalOutput).isFile()) {
        finish(id, JobStatus::skipped());
        return;
    }
    media::removeIfThere(paths.tmpOutput);
    processUnfinished(*job, paths, preset);
}

void QueueRunner::processUnfinished(const ProxyJob &job, const OutputPaths &paths, QualityPreset preset)
{
    const QString source = job.sourceURL.toLocalFile();
    setStatus(job.id, JobStatus::probing());
    const std::optional<ProbedMetadata> meta = media::probe(source, m_stop);
    if (!meta) {
        fail(job.id, QStringLiteral("could not read metadata"), media::probeFailureDetail(source, m_stop));
        record(job.id, paths, meta, QStringLiteral("failed: metadata"));
        return;
    }

    setStatus(job.id, JobStatus::encoding());
    const media::EncodeResult result = encode({source, *meta, job.id, preset, job.burnInEnabled}, paths);
    const QString outcome = result.success ? QStringLiteral("done") : QStringLiteral("failed: encode error");
    try {
        if (result.success)
            finish(job.id, JobStatus::done());
        else
            fail(job.id, QStringLiteral("encode error"), result.stderrTail);
    } catch (const Interrupted &) {
        record(job.id, paths, meta, outcome); // nobody sees the status any more, but the file is there
        throw;
    }
    record(job.id, paths, meta, outcome);
}

void QueueRunner::record(const QUuid &id, const OutputPaths &paths, const std::optional<ProbedMetadata> &meta,
                         const QString &status)
{
    const QString line = Manifest::line(paths, meta, status);
    Manifest::append(paths.manifest, line);
    m_mainThread.post([recorded = m_recorded, id, line] { recorded(id, line); });
}

media::EncodeResult QueueRunner::encode(const media::EncodeJob &encodeJob, const OutputPaths &paths)
{
    const media::VideoEncoder &alwaysWorks = m_system.videoEncoder;
    const media::VideoEncoder &encoder = m_encoderChoice.settle(m_system, encodeJob.preset, m_stop);
    const media::EncodeResult result = encodeWith(encoder, encodeJob, paths);
    if (result.success || encoder.name == alwaysWorks.name)
        return result;
    media::removeIfThere(paths.tmpOutput); // a work folder goes when the next try begins
    postProgress(encodeJob.jobId, 0, std::nullopt);
    return encodeWith(alwaysWorks, encodeJob, paths);
}

media::EncodeResult QueueRunner::encodeWith(const media::VideoEncoder &encoder,
                                            const media::EncodeJob &encodeJob, const OutputPaths &paths)
{
    const auto publish = [this](const QUuid &id, double progress, std::optional<double> etaSeconds) {
        postProgress(id, progress, etaSeconds);
    };
    const media::EncodeContext context = {m_system.with(encoder), publish, m_stop};
    if (encodeJob.meta.duration > m_chunkSeconds)
        return media::runChunked(encodeJob, paths.outDir, paths.finalOutput, m_chunkSeconds, context);
    return media::runSinglePass(encodeJob, paths.finalOutput, paths.tmpOutput, context);
}

QList<QUuid> QueueRunner::selectedQueuedIds()
{
    QList<QUuid> ids;
    m_mainThread.performAndWait([&] {
        for (const ProxyJob &job : m_jobs.jobs()) {
            if (job.status.isQueued() && job.isSelected)
                ids.append(job.id);
        }
    });
    return ids;
}

std::optional<ProxyJob> QueueRunner::copyOf(const QUuid &id)
{
    std::optional<ProxyJob> copy;
    m_mainThread.performAndWait([&] {
        if (const ProxyJob *job = m_jobs.find(id))
            copy = *job;
    });
    return copy;
}

void QueueRunner::setStatus(const QUuid &id, const JobStatus &status)
{
    m_mainThread.performAndWait([&] {
        m_jobs.set(id, &ProxyJob::status, status);
        m_jobs.set(id, &ProxyJob::etaSeconds, std::nullopt);
    });
}

void QueueRunner::finish(const QUuid &id, const JobStatus &status)
{
    m_mainThread.performAndWait([&] {
        m_jobs.set(id, &ProxyJob::status, status);
        m_jobs.set(id, &ProxyJob::progress, 1.0);
        m_jobs.set(id, &ProxyJob::etaSeconds, std::nullopt);
    });
}

void QueueRunner::fail(const QUuid &id, const QString &message, const QString &detail)
{
    m_mainThread.performAndWait([&] {
        m_jobs.set(id, &ProxyJob::status, JobStatus::failed(message));
        m_jobs.set(id, &ProxyJob::etaSeconds, std::nullopt);
        m_jobs.set(id, &ProxyJob::errorDetail, detail);
    });
}

void QueueRunner::postProgress(const QUuid &id, double progress, std::optional<double> etaSeconds)
{
    m_mainThread.post([this, id, progress, etaSeconds] {
        m_jobs.set(id, &ProxyJob::status, JobStatus::encoding());
        m_jobs.set(id, &ProxyJob::progress, progress);
        m_jobs.set(id, &ProxyJob::etaSeconds, etaSeconds);
    });
}

} // namespace marrowcut
