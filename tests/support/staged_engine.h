#pragma once

#include "engine/burn_in_engine.h"
#include "platform/file_viewer.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"
#include "ui/main/queue_view_model.h"

#include <QtQml/qqmlregistration.h>

#include <memory>

namespace marrowcut
{

/// Records the folders to reveal.
class MemoryFileViewer : public FileViewer
{
public:
    const QList<QUrl> &revealed() const { return m_revealed; }

    void reveal(const QUrl &folder) override { m_revealed.append(folder); }

private:
    QList<QUrl> m_revealed;
};

/// The engine with jobs in whatever state a test or a picture needs, and the window's view model on it.
/// Queue editing is the engine's own; start() only counts.
class StagedEngine : public BurnInEngine
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(marrowcut::QueueViewModel *viewModel READ viewModel CONSTANT)
    Q_PROPERTY(QList<QUrl> revealed READ revealed)
    Q_PROPERTY(int startCount READ startCount)
    Q_PROPERTY(QStringList missingTools MEMBER m_missingTools)
    Q_PROPERTY(qsizetype jobCount READ jobCount)
public:
    explicit StagedEngine(QObject *parent = nullptr);

    QueueViewModel *viewModel() { return &m_viewModel; }
    QList<QUrl> revealed() const { return m_viewer.revealed(); }
    int startCount() const { return m_startCount; }
    qsizetype jobCount() const { return jobs().size(); }

    /// Appends a job for a file path that need not exist. The status is the name of its case; a failure's
    /// message follows a colon: "encoding", "failed:encode error". A negative etaSeconds means none.
    Q_INVOKABLE void add(const QString &path, const QString &status = QStringLiteral("queued"),
                         double progress = 0, double etaSeconds = -1);
    Q_INVOKABLE void setStatus(int row, const QString &status);
    Q_INVOKABLE void setProgress(int row, double progress);
    Q_INVOKABLE void setSelected(int row, bool selected);
    Q_INVOKABLE void setErrorDetail(int row, const QString &detail);
    /// The job of the row waits for another Marrowcut; -1 for none.
    Q_INVOKABLE void setWaiting(int row)
    {
        setWaitingJob(row < 0 ? std::nullopt : std::optional(jobs()[row].id));
    }
    Q_INVOKABLE void stageRunning(bool running) { setRunning(running); }
    /// Whether the view model shows the current state.
    Q_INVOKABLE bool isShown() const { return !m_viewModel.findChild<QTimer *>()->isActive(); }
    Q_INVOKABLE bool isSelected(int row) const { return jobs()[row].isSelected; }
    Q_INVOKABLE bool isBurnInEnabled(int row) const { return jobs()[row].burnInEnabled; }
    Q_INVOKABLE QString fileName(int row) const { return jobs()[row].fileName(); }
    /// Back to the initial state.
    Q_INVOKABLE void clear();

    void start() override { ++m_startCount; }

private:
    struct Services {
        MemoryPreferenceStore preferences;
        MemoryNotificationCenter notifications{false};
    };

    StagedEngine(std::unique_ptr<Services> services, QObject *parent);

    std::unique_ptr<Services> m_services;
    MemoryFileViewer m_viewer;
    QStringList m_missingTools;
    int m_startCount = 0;
    QueueViewModel m_viewModel;
};

} // namespace marrowcut
