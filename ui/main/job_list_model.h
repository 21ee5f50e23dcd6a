#pragma once

#include "engine/model/proxy_job.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// The job list, finished for showing: every role is what a row shows. It follows a list of jobs by
/// differences and is never reset, so that scroll position and focus stay. Main thread.
class JobListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It belongs to the queue.")
public:
    enum Role {
        JobIdRole = Qt::UserRole, ///< text
        NameRole,
        StatusTextRole,
        StatusKindRole, ///< StatusKind
        EtaTextRole,    ///< "· 1m left" or empty
        ProgressRole,   ///< of the bar, 0.0 to 1.0
        IsSelectedRole,
        BurnInEnabledRole,
        ErrorTextRole,    ///< all that is known of a failure
        ErrorSummaryRole, ///< one line of it
        AccessibleTextRole,
    };

    enum StatusKind { Queued, Active, Successful, Failed };
    Q_ENUM(StatusKind)

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Makes the model show these jobs. They come in the order of the last time: some may be gone,
    /// some changed, new ones stand at the end. Where jobs are gone in very many places, views get time to
    /// draw in between, and the rest follows.
    void mirror(const QList<ProxyJob> &jobs);

private:
    void approach();
    bool removeMissing();
    void updateChanged();
    void appendNew();

    QList<ProxyJob> m_jobs;
    QList<ProxyJob> m_wanted;
    bool m_isApproaching = false;
};

} // namespace marrowcut
