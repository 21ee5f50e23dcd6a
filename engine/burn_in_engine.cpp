#include "engine/burn_in_engine.h"

#include "engine/queue_runner.h"
#include "engine/queue_summary.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"

#include <QPointer>

#include <algorithm>

namespace marrowcut
{

BurnInEngine::BurnInEngine(PreferenceStore &preferences, NotificationCenter &notifications, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_notifications(notifications)
    , m_jobs([this] { Q_EMIT willChange(); })
    , m_qualityPreset(QualityPreset::saved(preferences))
{
}

BurnInEngine::~BurnInEngine()
{
    m_runThread.requestStop();
    m_mainThread.close(); // the run's thread may wait for it
}

void BurnInEngine::setQualityPreset(QualityPreset preset)
{
    Q_EMIT willChange();
    m_qualityPreset = preset;
    QualityPreset::setSaved(m_preferences, preset);
}

bool BurnInEngine::hasSelectedQueuedJobs() const
{
    return std::ranges::any_of(jobs(), &ProxyJob::isSelectedAndQueued);
}

QList<RefusedItem> BurnInEngine::enqueue(const QList<QUrl> &urls, Subfolders subfolders)
{
    const ExpandedItems items = expandItems(urls, subfolders);
    for (const QUrl &videoFile : items.videoFiles) {
        if (!m_jobs.containsSource(videoFile))
            m_jobs.append(ProxyJob::forSource(videoFile));
    }
    return items.refused;
}

void BurnInEngine::removeFromQueue(QUuid id)
{
    const ProxyJob *job = m_jobs.find(id);
    if (job && job->status.isQueued())
        m_jobs.removeIf([&id](const ProxyJob &other) { return other.id == id; });
}

void BurnInEngine::setAllSelected(bool selected)
{
    const QList<ProxyJob> before = jobs(); // shares its data until the first edit
    for (const ProxyJob &job : before) {
        if (job.status.isQueued() && job.isSelected != selected)
            m_jobs.set(job.id, &ProxyJob::isSelected, selected);
    }
}

void BurnInEngine::toggleSelected(QUuid id)
{
    if (const ProxyJob *job = m_jobs.find(id))
        m_jobs.set(id, &ProxyJob::isSelected, !job->isSelected);
}

void BurnInEngine::toggleBurnIn(QUuid id)
{
    if (const ProxyJob *job = m_jobs.find(id))
        m_jobs.set(id, &ProxyJob::burnInEnabled, !job->burnInEnabled);
}

void BurnInEngine::retry(QUuid id)
{
    m_jobs.set(id, &ProxyJob::status, JobStatus::queued());
    m_jobs.set(id, &ProxyJob::progress, 0.0);
    m_jobs.set(id, &ProxyJob::isSelected, true);
    m_jobs.set(id, &ProxyJob::errorDetail, std::nullopt);
}

void BurnInEngine::clearCompleted()
{
    m_jobs.removeIf([](const ProxyJob &job) { return job.status.isFinished(); });
}

void BurnInEngine::start()
{
    if (m_isRunning || !hasSelectedQueuedJobs())
        return;
    setRunning(true);
    QList<QUuid> ids;
    for (const ProxyJob &job : jobs()) {
        if (job.isSelectedAndQueued())
            ids.append(job.id);
    }
    const auto work = [this, ids, preset = m_qualityPreset](const std::stop_token &stop) {
        run(ids, preset, stop);
    };
    if (!m_runThread.start(work))
        setRunning(false);
}

void BurnInEngine::run(const QList<QUuid> &ids, QualityPreset preset, const std::stop_token &stop)
{
    const QueueRunner::Observer observer = {
        .recorded =
            [this](const QUuid &id, const QString &manifestLine,
                   const std::optional<media::ProbedMetadata> &meta) {
                Q_EMIT recorded(id, manifestLine, meta);
            },
        .waiting = [this](const std::optional<QUuid> &id) { setWaitingJob(id); },
    };
    QueueRunner(m_jobs, m_mainThread, m_encoderChoice, chunkSeconds, observer, stop).runQueue(ids, preset);
    m_mainThread.post([this] {
        setRunning(false);
        notifyCompletion();
    });
}

void BurnInEngine::setRunning(bool isRunning)
{
    Q_EMIT willChange();
    m_isRunning = isRunning;
}

void BurnInEngine::setWaitingJob(const std::optional<QUuid> &id)
{
    if (m_waitingJob == id)
        return;
    Q_EMIT willChange();
    m_waitingJob = id;
}

bool BurnInEngine::interrupt(std::chrono::milliseconds limit)
{
    m_runThread.requestStop();
    m_mainThread.close();
    return m_runThread.endedWithin(limit);
}

void BurnInEngine::notifyCompletion()
{
    m_notifications.requestAuthorization([engine = QPointer(this)](bool granted) {
        if (granted && engine)
            engine->m_notifications.add({QUuid::createUuid().toString(QUuid::WithoutBraces),
                                         QStringLiteral("Marrowcut"),
                                         QueueSummary::of(engine->jobs()).completionText()});
    });
}

} // namespace marrowcut
