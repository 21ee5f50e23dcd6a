#include "ui/main/job_list_model.h"

#include "ui/main/job_text.h"

#include <utility>

namespace marrowcut
{

namespace
{

/// Rows from first to last, inclusive.
struct Range {
    qsizetype first;
    qsizetype last;
};

/// The rows whose jobs are gone.
QList<Range> missingRanges(const QList<ProxyJob> &shown, const QList<ProxyJob> &jobs)
{
    QList<Range> missing;
    qsizetype position = 0;
    for (qsizetype row = 0; row < shown.size(); ++row) {
        if (position < jobs.size() && jobs[position].id == shown[row].id)
            ++position;
        else if (!missing.isEmpty() && missing.last().last == row - 1)
            missing.last().last = row;
        else
            missing.append({row, row});
    }
    return missing;
}

JobListModel::StatusKind statusKind(const JobStatus &status)
{
    if (status.isQueued())
        return JobListModel::Queued;
    if (status.isFailed())
        return JobListModel::Failed;
    return status.isSuccessful() ? JobListModel::Successful : JobListModel::Active;
}

} // namespace

int JobListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_jobs.size());
}

QVariant JobListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const ProxyJob &job = m_jobs[index.row()];
    switch (role) {
    case JobIdRole:
        return job.id.toString();
    case NameRole:
        return JobText::oneLine(job.fileName());
    case StatusLabelRole:
        return job.status.label();
    case StatusKindRole:
        return statusKind(job.status);
    case RemainingTimeRole:
        return JobText::remainingTime(job);
    case ProgressRole:
        return JobText::barValue(job);
    case IsSelectedRole:
        return job.isSelected;
    case BurnInEnabledRole:
        return job.burnInEnabled;
    case StatusToolTipRole:
        return job.id == m_waitingJob ? JobText::waitingText() : JobText::failureText(job);
    case AccessibleDescriptionRole:
        return job.id == m_waitingJob ? JobText::waitingText() : JobText::accessibleDescription(job);
    case AccessibleNameRole:
        return JobText::accessibleName(job);
    default:
        return QVariant();
    }
}

QHash<int, QByteArray> JobListModel::roleNames() const
{
    return {
        {JobIdRole, "jobId"},
        {NameRole, "name"},
        {StatusLabelRole, "statusLabel"},
        {StatusKindRole, "statusKind"},
        {RemainingTimeRole, "remainingTime"},
        {ProgressRole, "progress"},
        {IsSelectedRole, "isSelected"},
        {BurnInEnabledRole, "burnInEnabled"},
        {StatusToolTipRole, "statusToolTip"},
        {AccessibleDescriptionRole, "accessibleDescription"},
        {AccessibleNameRole, "accessibleName"},
    };
}

void JobListModel::mirror(const QList<ProxyJob> &jobs, const std::optional<QUuid> &waitingJob)
{
    removeMissing(jobs);
    updateChanged(jobs);
    appendNew(jobs);
    setWaitingJob(waitingJob);
}

void JobListModel::setWaitingJob(const std::optional<QUuid> &id)
{
    if (id == m_waitingJob)
        return;
    const auto before = std::exchange(m_waitingJob, id);
    for (int row = 0; row < rowCount(); ++row) {
        if (m_jobs[row].id == before || m_jobs[row].id == id)
            Q_EMIT dataChanged(index(row), index(row), {StatusToolTipRole, AccessibleDescriptionRole});
    }
}

void JobListModel::removeMissing(const QList<ProxyJob> &jobs)
{
    const QList<Range> missing = missingRanges(m_jobs, jobs);
    for (auto range = missing.crbegin(); range != missing.crend(); ++range) {
        beginRemoveRows({}, static_cast<int>(range->first), static_cast<int>(range->last));
        m_jobs.remove(range->first, range->last - range->first + 1);
        endRemoveRows();
    }
}

void JobListModel::updateChanged(const QList<ProxyJob> &jobs)
{
    const qsizetype count = m_jobs.size();
    const QList<ProxyJob> before = std::exchange(m_jobs, jobs.size() == count ? jobs : jobs.first(count));
    const auto isSame = [&](qsizetype row) { return before[row] == std::as_const(m_jobs)[row]; };
    for (qsizetype row = 0; row < count; ++row) {
        if (isSame(row))
            continue;
        const qsizetype first = row;
        while (row + 1 < count && !isSame(row + 1))
            ++row;
        Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(row)));
    }
}

void JobListModel::appendNew(const QList<ProxyJob> &jobs)
{
    if (jobs.size() == m_jobs.size())
        return;
    beginInsertRows({}, static_cast<int>(m_jobs.size()), static_cast<int>(jobs.size() - 1));
    m_jobs = jobs;
    endInsertRows();
}

} // namespace marrowcut
