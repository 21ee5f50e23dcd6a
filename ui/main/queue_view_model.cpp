#include "ui/main/queue_view_model.h"

#include "engine/output_paths.h"
#include "platform/file_viewer.h"
#include "ui/main/job_row.h"
#include "ui/main/queue_source.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <iterator>
#include <utility>

namespace marrowcut
{

QueueViewModel::QueueViewModel(QueueSource &source, FileViewer &viewer, QObject *parent)
    : QObject(parent)
    , m_source(source)
    , m_viewer(viewer)
{
    connect(&source, &QueueSource::willChange, this, &QueueViewModel::scheduleRefresh);
    refresh();
}

QString QueueViewModel::doneText() const
{
    return QStringLiteral("%1 of %2 done").arg(m_summary.doneCount).arg(m_summary.jobCount);
}

QStringList QueueViewModel::presetNames() const
{
    QStringList names;
    for (const QualityPreset preset : QualityPreset::allCases)
        names.append(preset.rawValue());
    return names;
}

int QueueViewModel::presetIndex() const
{
    const auto &cases = QualityPreset::allCases;
    return static_cast<int>(std::ranges::find(cases, static_cast<QualityPreset::Case>(m_preset)) -
                            cases.begin());
}

void QueueViewModel::choosePreset(int index)
{
    m_source.setQualityPreset(QualityPreset::allCases.at(static_cast<std::size_t>(index)));
}

bool QueueViewModel::acceptsDrop(const QList<QUrl> &urls)
{
    return std::ranges::any_of(urls, &QUrl::isLocalFile);
}

void QueueViewModel::handleDrop(const QList<QUrl> &urls)
{
    QList<QUrl> files;
    std::ranges::copy_if(urls, std::back_inserter(files), &QUrl::isLocalFile);
    QMetaObject::invokeMethod(
        &m_source, [this, files] { m_source.enqueue(files); }, Qt::QueuedConnection);
}

void QueueViewModel::removeFromQueue(const QString &jobId)
{
    m_source.removeFromQueue(QUuid(jobId));
}

void QueueViewModel::toggleSelected(const QString &jobId)
{
    m_source.toggleSelected(QUuid(jobId));
}

void QueueViewModel::toggleBurnIn(const QString &jobId)
{
    m_source.toggleBurnIn(QUuid(jobId));
}

void QueueViewModel::retry(const QString &jobId)
{
    m_source.retry(QUuid(jobId));
}

void QueueViewModel::copyError(const QString &jobId)
{
    const QList<ProxyJob> &jobs = m_source.jobs();
    const auto job = std::ranges::find(jobs, QUuid(jobId), &ProxyJob::id);
    if (job != jobs.end())
        QGuiApplication::clipboard()->setText(JobRow::errorReport(*job));
}

void QueueViewModel::toggleAllSelected()
{
    m_source.setAllSelected(!QueueSummary::of(m_source.jobs()).allQueuedSelected());
}

void QueueViewModel::clearCompleted()
{
    m_source.clearCompleted();
}

void QueueViewModel::start()
{
    m_source.start();
}

void QueueViewModel::revealOutput()
{
    if (m_outputDir.isValid())
        m_viewer.reveal(m_outputDir);
}

void QueueViewModel::scheduleRefresh()
{
    if (!std::exchange(m_refreshScheduled, true))
        QMetaObject::invokeMethod(this, &QueueViewModel::refresh, Qt::QueuedConnection);
}

void QueueViewModel::refresh()
{
    m_refreshScheduled = false;
    const QList<ProxyJob> &jobs = m_source.jobs();
    m_jobs.mirror(jobs);
    assign(m_preset, m_source.qualityPreset(), &QueueViewModel::presetChanged);
    assign(m_isRunning, m_source.isRunning(), &QueueViewModel::isRunningChanged);
    assign(m_outputDir, jobs.isEmpty() ? QUrl() : outputFolder(jobs.first().sourceURL),
           &QueueViewModel::outputDirChanged);
    assign(m_summary, QueueSummary::of(jobs), &QueueViewModel::summaryChanged);
}

template <typename Value>
void QueueViewModel::assign(Value &shown, const Value &value, void (QueueViewModel::*changed)())
{
    if (shown == value)
        return;
    shown = value;
    Q_EMIT(this->*changed)();
}

} // namespace marrowcut
