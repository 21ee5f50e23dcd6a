#include "ui/main/scripted/scripted_queue.h"

namespace marrowcut
{

namespace
{

JobStatus statusNamed(const QString &name)
{
    if (name.startsWith(QLatin1String("failed:")))
        return JobStatus::failed(name.section(QLatin1Char(':'), 1));
    const QHash<QString, JobStatus> named = {
        {QStringLiteral("queued"), JobStatus::queued()},
        {QStringLiteral("probing"), JobStatus::probing()},
        {QStringLiteral("encoding"), JobStatus::encoding()},
        {QStringLiteral("done"), JobStatus::done()},
        {QStringLiteral("skipped"), JobStatus::skipped()},
    };
    Q_ASSERT(named.contains(name));
    return named.value(name, JobStatus::queued());
}

} // namespace

ScriptedQueue::ScriptedQueue(QObject *parent)
    : QueueSource(parent)
    , m_jobs([this] { Q_EMIT willChange(); })
    , m_viewModel(*this, m_viewer)
{
}

void ScriptedQueue::add(const QString &path, const QString &status, double progress, double etaSeconds)
{
    ProxyJob job = ProxyJob::forSource(QUrl::fromLocalFile(path));
    job.status = statusNamed(status);
    job.progress = progress;
    if (etaSeconds >= 0)
        job.etaSeconds = etaSeconds;
    m_jobs.append(job);
}

void ScriptedQueue::setStatus(int row, const QString &status)
{
    m_jobs.set(jobs()[row].id, &ProxyJob::status, statusNamed(status));
}

void ScriptedQueue::setProgress(int row, double progress)
{
    m_jobs.set(jobs()[row].id, &ProxyJob::progress, progress);
}

void ScriptedQueue::setSelected(int row, bool selected)
{
    m_jobs.set(jobs()[row].id, &ProxyJob::isSelected, selected);
}

void ScriptedQueue::setErrorDetail(int row, const QString &detail)
{
    m_jobs.set(jobs()[row].id, &ProxyJob::errorDetail, detail);
}

void ScriptedQueue::setRunning(bool running)
{
    Q_EMIT willChange();
    m_isRunning = running;
}

void ScriptedQueue::clear()
{
    m_jobs.removeIf([](const ProxyJob &) { return true; });
    m_enqueued.clear();
    m_viewer = MemoryFileViewer();
    m_startCount = 0;
    setRunning(false);
    setQualityPreset(QualityPreset::standard);
}

void ScriptedQueue::setQualityPreset(QualityPreset preset)
{
    Q_EMIT willChange();
    m_preset = preset;
}

void ScriptedQueue::enqueue(const QList<QUrl> &urls)
{
    m_enqueued += urls;
    for (const QUrl &url : urls)
        m_jobs.append(ProxyJob::forSource(url));
}

void ScriptedQueue::removeFromQueue(const QUuid &id)
{
    m_jobs.removeIf([&id](const ProxyJob &job) { return job.id == id && job.status.isQueued(); });
}

void ScriptedQueue::setAllSelected(bool selected)
{
    const QList<ProxyJob> before = jobs();
    for (const ProxyJob &job : before) {
        if (job.status.isQueued())
            m_jobs.set(job.id, &ProxyJob::isSelected, selected);
    }
}

void ScriptedQueue::toggleSelected(const QUuid &id)
{
    m_jobs.set(id, &ProxyJob::isSelected, !m_jobs.find(id)->isSelected);
}

void ScriptedQueue::toggleBurnIn(const QUuid &id)
{
    m_jobs.set(id, &ProxyJob::burnInEnabled, !m_jobs.find(id)->burnInEnabled);
}

void ScriptedQueue::retry(const QUuid &id)
{
    m_jobs.set(id, &ProxyJob::status, JobStatus::queued());
    m_jobs.set(id, &ProxyJob::progress, 0);
    m_jobs.set(id, &ProxyJob::isSelected, true);
}

void ScriptedQueue::clearCompleted()
{
    m_jobs.removeIf([](const ProxyJob &job) { return job.status.isFinished(); });
}

void ScriptedQueue::start()
{
    ++m_startCount;
}

} // namespace marrowcut
