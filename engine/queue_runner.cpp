#include "engine/queue_runner.h"

#include "engine/manifest.h"
#include "media/error_output.h"
#include "media/failure_messages.h"
#include "media/output_files.h"
#include "media/probe.h"
#include "platform/background_thread.h"
#include "platform/clip_lock.h"
#include "platform/main_thread_queue.h"

#include <QFileInfo>

#include <new>

namespace marrowcut
{

namespace
{

QString encodeError()
{
    return QStringLiteral("encode error");
}

QString encodeErrorRecord()
{
    return QStringLiteral("failed: ") + encodeError();
}

/// The first error of the encoder itself, as "[h264_nvenc @ 0x…] …" or by its quoted name.
QString firstLineReportedBy(const media::VideoEncoder &encoder, const QString &stderrTail)
{
    for (const QString &line : stderrTail.split(QLatin1Char('\n'))) {
        if (line.contains(QLatin1Char('[') + encoder.name + QStringLiteral(" @")) ||
            line.contains(QLatin1Char('\'') + encoder.name + QLatin1Char('\'')))
            return line;
    }
    return QString();
}

/// The texts' last lines, as many as a tail holds.
QString joinedTail(std::initializer_list<QString> texts)
{
    media::StderrTail tail;
    for (const QString &text : texts)
        tail.append(text);
    return tail.text();
}

} // namespace

QueueRunner::QueueRunner(JobList &jobs, MainThreadQueue &mainThread, media::EncoderChoice &encoderChoice,
                         double chunkSeconds, Observer observer, std::stop_token stop)
    : m_jobs(jobs)
    , m_mainThread(mainThread)
    , m_encoderChoice(encoderChoice)
    , m_chunkSeconds(chunkSeconds)
    , m_observer(std::move(observer))
    , m_stop(std::move(stop))
    , m_system(media::currentSystemValues())
{
}

void QueueRunner::runQueue(const QList<QUuid> &ids, QualityPreset preset)
{
    for (const QUuid &id : ids) {
        try {
            processJob(id, preset);
        } catch (const std::bad_alloc &) {
            endWithoutMemory(id);
        }
    }
}

void QueueRunner::endWithoutMemory(const QUuid &id)
{
    const std::optional<ProxyJob> job = copyOf(id);
    if (!job)
        return;
    const OutputPaths paths = OutputPaths::forSource(job->sourceURL);
    if (QFileInfo(paths.finalOutput).isFile()) { // only what follows the encode failed
        finish(id, JobStatus::done());
        return;
    }
    fail(id, encodeError(), media::outOfMemory);
    record(id, paths, std::nullopt, encodeErrorRecord());
}

void QueueRunner::processJob(const QUuid &id, QualityPreset preset)
{
    std::optional<ProxyJob> job = copyOf(id);
    if (!job)
        return; // removed meanwhile
    const OutputPaths paths = OutputPaths::forSource(job->sourceURL);
    const QString folderProblem = media::createFolder(paths.outDir);
    if (skipIfDone(id, paths))
        return;
    const auto onLongWait = [&] { postWaiting(id); };
    const ClipLock lock(paths.outDir, paths.proxyFilename, onLongWait, m_stop);
    if (lock.hasWaited()) {
        postWaiting(std::nullopt);
        job = copyOf(id); // it may have been removed or changed
        if (!job || skipIfDone(id, paths))
            return;
    }
    media::removeIfThere(paths.tmpOutput);
    processUnfinished(*job, paths, folderProblem, preset);
}

/// An existing proxy is complete: it gets its name by the last step of its encode.
bool QueueRunner::skipIfDone(const QUuid &id, const OutputPaths &paths)
{
    if (!QFileInfo(paths.finalOutput).isFile())
        return false;
    finish(id, JobStatus::skipped());
    return true;
}

void QueueRunner::processUnfinished(const ProxyJob &job, const OutputPaths &paths,
                                    const QString &folderProblem, QualityPreset preset)
{
    const QString source = job.sourceURL.toLocalFile();
    setStatus(job.id, JobStatus::probing());
    const media::FileStamp stamp = media::FileStamp::of(source);
    const std::optional<media::ProbedMetadata> meta = media::probe(source, m_stop);
    if (!meta) {
        fail(job.id, QStringLiteral("could not read metadata"), media::probeFailureDetail(source, m_stop));
        record(job.id, paths, meta, QStringLiteral("failed: metadata"));
        return;
    }

    setStatus(job.id, JobStatus::encoding());
    finishAndRecord(job.id, paths, *meta,
                    encode({source, stamp, paths, *meta, job.id, preset, job.burnInEnabled}, folderProblem));
}

void QueueRunner::finishAndRecord(const QUuid &id, const OutputPaths &paths,
                                  const media::ProbedMetadata &meta, const media::EncodeResult &result)
{
    const QString outcome = result.success ? QStringLiteral("done") : encodeErrorRecord();
    try {
        if (result.success)
            finish(id, JobStatus::done());
        else
            fail(id, encodeError(), result.stderrTail);
    } catch (const Interrupted &) {
        record(id, paths, meta, outcome); // the status is shown to nobody any more, but the proxy exists
        throw;
    }
    record(id, paths, meta, outcome);
}

void QueueRunner::record(const QUuid &id, const OutputPaths &paths,
                         const std::optional<media::ProbedMetadata> &meta, const QString &status)
{
    const QString line = Manifest::line(paths, meta, status);
    Manifest::append(paths.manifest, line);
    m_mainThread.post([recorded = m_observer.recorded, id, line, meta] { recorded(id, line, meta); });
}

media::EncodeResult QueueRunner::encode(const media::EncodeJob &encodeJob, const QString &folderProblem)
{
    // Checked first, to save a useless encode.
    if (const QString problem = media::folderInPlace(encodeJob.paths.finalOutput); !problem.isEmpty())
        return {false, problem};
    media::EncodeResult result = encodeWithBest(encodeJob);
    if (result.success || folderProblem.isEmpty() || result.stderrTail.contains(folderProblem))
        return result;
    return {false, joinedTail({result.stderrTail, folderProblem})};
}

/// What a hardware encoder itself fails on is encoded in software, from the start.
media::EncodeResult QueueRunner::encodeWithBest(const media::EncodeJob &encodeJob)
{
    const media::VideoEncoder &software = m_system.videoEncoder;
    const media::VideoEncoder &encoder = m_encoderChoice.resolve(m_system, encodeJob.preset, m_stop);
    media::EncodeResult result = encodeWith(encoder, encodeJob);
    const QString reason = firstLineReportedBy(encoder, result.stderrTail);
    if (result.success || encoder.name == software.name || reason.isEmpty())
        return result;
    media::removeIfThere(encodeJob.paths.tmpOutput); // a work folder is made anew anyway
    postProgress(encodeJob.jobId, 0, std::nullopt);
    const media::EncodeResult second = encodeWith(software, encodeJob);
    return {second.success, second.success ? second.stderrTail : joinedTail({reason, second.stderrTail})};
}

media::EncodeResult QueueRunner::encodeWith(const media::VideoEncoder &encoder,
                                            const media::EncodeJob &encodeJob)
{
    const auto publish = [this](const QUuid &id, double progress, std::optional<double> etaSeconds) {
        postProgress(id, progress, etaSeconds);
    };
    const media::EncodeContext context = {m_system.with(encoder), publish, m_stop};
    if (encodeJob.meta.duration > m_chunkSeconds)
        return media::runChunked(encodeJob, m_chunkSeconds, context);
    return media::runSinglePass(encodeJob, context);
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

// What is posted may be done after this object is gone: it refers to the engine's list only.

void QueueRunner::postProgress(const QUuid &id, double progress, std::optional<double> etaSeconds)
{
    m_mainThread.post([&jobs = m_jobs, id, progress, etaSeconds] {
        jobs.set(id, &ProxyJob::status, JobStatus::encoding());
        jobs.set(id, &ProxyJob::progress, progress);
        jobs.set(id, &ProxyJob::etaSeconds, etaSeconds);
    });
}

void QueueRunner::postWaiting(const std::optional<QUuid> &id)
{
    m_mainThread.post([waiting = m_observer.waiting, id] { waiting(id); });
}

} // namespace marrowcut
