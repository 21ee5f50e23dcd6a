#include "support/staged_engine.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace marrowcut
{

namespace
{

JobStatus statusNamed(const QString &name)
{
    if (name.startsWith(QLatin1String("failed:")))
        return JobStatus::failed(name.section(QLatin1Char(':'), 1));
    const QHash<QString, JobStatus> named = {
        {u"queued"_s, JobStatus::queued()},     {u"probing"_s, JobStatus::probing()},
        {u"encoding"_s, JobStatus::encoding()}, {u"done"_s, JobStatus::done()},
        {u"skipped"_s, JobStatus::skipped()},
    };
    Q_ASSERT(named.contains(name));
    return named.value(name, JobStatus::queued());
}

} // namespace

StagedEngine::StagedEngine(QObject *parent)
    : StagedEngine(std::make_unique<Services>(), parent)
{
}

StagedEngine::StagedEngine(std::unique_ptr<Services> services, QObject *parent)
    : BurnInEngine(services->preferences, services->notifications, parent)
    , m_services(std::move(services))
    , m_viewModel(*this, m_viewer, [this] { return m_missingTools; })
{
}

void StagedEngine::add(const QString &path, const QString &status, double progress, double etaSeconds)
{
    ProxyJob job = ProxyJob::forSource(QUrl::fromLocalFile(path));
    job.status = statusNamed(status);
    job.progress = progress;
    if (etaSeconds >= 0)
        job.etaSeconds = etaSeconds;
    jobList().append(job);
}

void StagedEngine::setStatus(int row, const QString &status)
{
    jobList().set(jobs()[row].id, &ProxyJob::status, statusNamed(status));
}

void StagedEngine::setProgress(int row, double progress)
{
    jobList().set(jobs()[row].id, &ProxyJob::progress, progress);
}

void StagedEngine::setSelected(int row, bool selected)
{
    jobList().set(jobs()[row].id, &ProxyJob::isSelected, selected);
}

void StagedEngine::setErrorDetail(int row, const QString &detail)
{
    jobList().set(jobs()[row].id, &ProxyJob::errorDetail, detail);
}

void StagedEngine::clear()
{
    jobList().removeIf([](const ProxyJob &) { return true; });
    m_viewer = MemoryFileViewer();
    m_startCount = 0;
    m_missingTools.clear();
    setWaitingJob(std::nullopt);
    setRunning(false);
    setQualityPreset(QualityPreset::standard);
}

} // namespace marrowcut
