#pragma once

#include "engine/model/proxy_job.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace marrowcut
{

/// The rows of the job list; every role is ready to be shown. It follows the jobs by differences and is never
/// reset, which would lose scroll position and focus. Main thread.
class JobListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It belongs to the queue.")
public:
    enum Role {
        JobIdRole = Qt::UserRole, ///< text
        NameRole,
        StatusLabelRole,
        StatusKindRole,    ///< StatusKind
        RemainingTimeRole, ///< "· 1m left" or empty
        ProgressRole,      ///< of the bar, 0.0 to 1.0
        IsSelectedRole,
        BurnInEnabledRole,
        StatusToolTipRole, ///< more about the status: a failure, or what the job waits for
        AccessibleDescriptionRole,
        AccessibleNameRole,
    };

    enum StatusKind { Queued, Active, Successful, Failed };
    Q_ENUM(StatusKind)

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Makes the model show these jobs, one of which may be waiting for another Marrowcut. Those that stay
    /// keep their order; new ones are at the end.
    void mirror(const QList<ProxyJob> &jobs, const std::optional<QUuid> &waitingJob = std::nullopt);

private:
    void removeMissing(const QList<ProxyJob> &jobs);
    void updateChanged(const QList<ProxyJob> &jobs);
    void appendNew(const QList<ProxyJob> &jobs);
    void setWaitingJob(const std::optional<QUuid> &id);

    QList<ProxyJob> m_jobs;
    std::optional<QUuid> m_waitingJob;
};

} // namespace marrowcut
