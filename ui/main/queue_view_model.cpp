#include "ui/main/queue_view_model.h"

#include "engine/burn_in_engine.h"
#include "engine/model/output_paths.h"
#include "platform/file_viewer.h"
#include "platform/outside_text.h"
#include "ui/main/job_text.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <utility>

namespace marrowcut
{

namespace
{

constexpr qint64 frameMilliseconds = 17; // at 60 Hz, rounded up
/// Refreshing takes at most about a twentieth of the time, so that a long queue does not hold up its run; on
/// a busy machine, where one refresh may seem long, what is shown still follows.
constexpr qint64 pauseFactor = 20;
constexpr qint64 longestPause = 500; // milliseconds

int activeRowOf(const QList<ProxyJob> &jobs)
{
    const auto isActive = [](const ProxyJob &job) {
        return job.status.isProbing() || job.status.isEncoding();
    };
    const auto active = std::ranges::find_if(jobs, isActive);
    return active == jobs.end() ? -1 : static_cast<int>(active - jobs.begin());
}

} // namespace

QueueViewModel::QueueViewModel(BurnInEngine &engine, FileViewer &viewer, ToolCheck findMissingTools,
                               QObject *parent)
    : QObject(parent)
    , m_engine(engine)
    , m_viewer(viewer)
    , m_findMissingTools(std::move(findMissingTools))
{
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_refreshTimer, &QTimer::timeout, this, &QueueViewModel::refresh);
    connect(&engine, &BurnInEngine::willChange, this, &QueueViewModel::scheduleRefresh);
    refresh();
}

int QueueViewModel::presetIndex() const
{
    const auto &cases = QualityPreset::allCases;
    return static_cast<int>(std::ranges::find(cases, static_cast<QualityPreset::Case>(m_preset)) -
                            cases.begin());
}

void QueueViewModel::choosePreset(int index)
{
    m_engine.setQualityPreset(QualityPreset::allCases.at(static_cast<std::size_t>(index)));
}

bool QueueViewModel::acceptsDrop(const QList<QUrl> &urls)
{
    return std::ranges::any_of(urls, [](const QUrl &url) { return localFileUrl(url).has_value(); });
}

void QueueViewModel::handleDrop(const QList<QUrl> &urls)
{
    for (const QUrl &url : urls) {
        if (const auto file = localFileUrl(url))
            QMetaObject::invokeMethod(
                &m_engine, [&engine = m_engine, file = *file] { engine.enqueue({file}); },
                Qt::QueuedConnection);
    }
}

void QueueViewModel::paste()
{
    if (const QMimeData *contents = QGuiApplication::clipboard()->mimeData())
        handleDrop(contents->urls());
}

void QueueViewModel::removeFromQueue(const QString &jobId)
{
    m_engine.removeFromQueue(QUuid(jobId));
}

void QueueViewModel::toggleSelected(const QString &jobId)
{
    m_engine.toggleSelected(QUuid(jobId));
}

void QueueViewModel::toggleBurnIn(const QString &jobId)
{
    m_engine.toggleBurnIn(QUuid(jobId));
}

void QueueViewModel::retry(const QString &jobId)
{
    m_engine.retry(QUuid(jobId));
}

void QueueViewModel::copyError(const QString &jobId)
{
    const QList<ProxyJob> &jobs = m_engine.jobs();
    const auto job = std::ranges::find(jobs, QUuid(jobId), &ProxyJob::id);
    if (job != jobs.end())
        QGuiApplication::clipboard()->setText(JobText::failureReport(*job));
}

void QueueViewModel::toggleAllSelected()
{
    m_engine.setAllSelected(!QueueSummary::of(m_engine.jobs()).allQueuedSelected());
}

void QueueViewModel::clearCompleted()
{
    m_engine.clearCompleted();
}

void QueueViewModel::start()
{
    checkTools();
    m_engine.start();
}

void QueueViewModel::checkTools()
{
    assign(m_missingTools, m_findMissingTools().join(QLatin1Char('\n')),
           &QueueViewModel::missingToolsChanged);
}

void QueueViewModel::revealOutput()
{
    if (m_outputDir.isValid())
        m_viewer.reveal(m_outputDir);
}

void QueueViewModel::scheduleRefresh()
{
    if (!m_refreshTimer.isActive())
        m_refreshTimer.start(static_cast<int>(m_nextRefresh.remainingTime()));
}

void QueueViewModel::refresh()
{
    QElapsedTimer duration;
    duration.start();
    const QList<ProxyJob> &jobs = m_engine.jobs();
    m_jobs.mirror(jobs, m_engine.waitingJob());
    assign(m_preset, m_engine.qualityPreset(), &QueueViewModel::presetChanged);
    assign(m_isRunning, m_engine.isRunning(), &QueueViewModel::isRunningChanged);
    assign(m_outputDir, jobs.isEmpty() ? QUrl() : outputFolder(jobs.first().sourceURL),
           &QueueViewModel::outputDirChanged);
    assign(m_activeRow, activeRowOf(jobs), &QueueViewModel::activeRowChanged);
    assign(m_summary, QueueSummary::of(jobs), &QueueViewModel::summaryChanged);
    m_nextRefresh.setRemainingTime(
        std::clamp(pauseFactor * duration.elapsed(), frameMilliseconds, longestPause));
}

template <typename Value>
void QueueViewModel::assign(Value &shown, const Value &value, void (QueueViewModel::*changed)())
{
    if (std::exchange(shown, value) != value)
        Q_EMIT(this->*changed)();
}

} // namespace marrowcut
