#pragma once

#include "engine/job_list.h"
#include "ui/main/queue_source.h"
#include "ui/main/queue_view_model.h"

#include "platform/file_viewer.h"

#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// A queue whose jobs stand where a script puts them and that runs nothing: for looking at every state of
/// the window, and for its tests. The operations edit the list as the engine's do, and are written down.
class ScriptedQueue : public QueueSource
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(marrowcut::QueueViewModel *viewModel READ viewModel CONSTANT)
    Q_PROPERTY(QList<QUrl> enqueued READ enqueued)
    Q_PROPERTY(QList<QUrl> revealed READ revealed)
    Q_PROPERTY(int startCount READ startCount)
public:
    explicit ScriptedQueue(QObject *parent = nullptr);

    QueueViewModel *viewModel() { return &m_viewModel; }
    QList<QUrl> enqueued() const { return m_enqueued; } ///< one for each call
    QList<QUrl> revealed() const { return m_viewer.revealed(); }
    int startCount() const { return m_startCount; }

    /// Appends a job for a file path. The status is the name of its case, with the message of a failure
    /// behind a colon, such as "encoding" or "failed:encode error". No estimate is below zero.
    Q_INVOKABLE void add(const QString &path, const QString &status = QStringLiteral("queued"),
                         double progress = 0, double etaSeconds = -1);
    Q_INVOKABLE void setStatus(int row, const QString &status);
    Q_INVOKABLE void setProgress(int row, double progress);
    Q_INVOKABLE void setSelected(int row, bool selected);
    Q_INVOKABLE void setErrorDetail(int row, const QString &detail);
    Q_INVOKABLE void setRunning(bool running);
    Q_INVOKABLE bool isSelected(int row) const { return m_jobs.jobs()[row].isSelected; }
    Q_INVOKABLE bool isBurnInEnabled(int row) const { return m_jobs.jobs()[row].burnInEnabled; }
    /// Back to the beginning, with no jobs and nothing written down.
    Q_INVOKABLE void clear();

    const QList<ProxyJob> &jobs() const override { return m_jobs.jobs(); }
    bool isRunning() const override { return m_isRunning; }
    QualityPreset qualityPreset() const override { return m_preset; }
    void setQualityPreset(QualityPreset preset) override;
    void enqueue(const QList<QUrl> &urls) override;
    void removeFromQueue(const QUuid &id) override;
    void setAllSelected(bool selected) override;
    void toggleSelected(const QUuid &id) override;
    void toggleBurnIn(const QUuid &id) override;
    void retry(const QUuid &id) override;
    void clearCompleted() override;
    void start() override;

private:
    JobList m_jobs;
    bool m_isRunning = false;
    QualityPreset m_preset;
    QList<QUrl> m_enqueued;
    MemoryFileViewer m_viewer;
    int m_startCount = 0;
    QueueViewModel m_viewModel;
};

} // namespace marrowcut
