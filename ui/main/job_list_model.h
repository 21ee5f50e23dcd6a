#pragma once

#include "engine/model/proxy_job.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

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
        FailureTextRole,           ///< all that is known of a failure
        AccessibleDescriptionRole, ///< one line of it
        AccessibleNameRole,
    };

    enum StatusKind { Queued, Active, Successful, Failed };
    Q_ENUM(StatusKind)

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Makes the model show these jobs. Those that stay keep their order; new ones are at the end.
    void mirror(const QList<ProxyJob> &jobs);

private:
    void removeMissing(const QList<ProxyJob> &jobs);
    void updateChanged(const QList<ProxyJob> &jobs);
    void appendNew(const QList<ProxyJob> &jobs);

    QList<ProxyJob> m_jobs;
};

} // namespace marrowcut
