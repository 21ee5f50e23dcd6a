#pragma once

#include "engine/model/quality_preset.h"
#include "engine/queue_summary.h"
#include "media/ffmpeg_locator.h"
#include "ui/main/job_list_model.h"
#include "ui/main/job_text.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace marrowcut
{

class BurnInEngine;
class FileViewer;

/// The engine's queue as the window shows it, and what the window's controls do. Main thread.
///
/// The engine announces each edit before it is applied. That schedules one refresh, at most one for each
/// displayed frame, which reads the engine again and emits ordinary change signals. The operations go
/// straight to the engine, so each acts on the engine's current state and not on what is shown.
class QueueViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has one.")
    Q_PROPERTY(marrowcut::JobListModel *jobs READ jobs CONSTANT)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY summaryChanged)
    Q_PROPERTY(bool hasQueuedJobs READ hasQueuedJobs NOTIFY summaryChanged)
    Q_PROPERTY(bool hasSelectedQueuedJobs READ hasSelectedQueuedJobs NOTIFY summaryChanged)
    Q_PROPERTY(bool hasCompletedJobs READ hasCompletedJobs NOTIFY summaryChanged)
    Q_PROPERTY(bool allQueuedSelected READ allQueuedSelected NOTIFY summaryChanged)
    Q_PROPERTY(double overallProgress READ overallProgress NOTIFY summaryChanged)
    Q_PROPERTY(QString doneText READ doneText NOTIFY summaryChanged)
    Q_PROPERTY(QString missingTools READ missingTools NOTIFY missingToolsChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY isRunningChanged)
    Q_PROPERTY(QString outputDirPath READ outputDirPath NOTIFY outputDirChanged)
    Q_PROPERTY(int activeRow READ activeRow NOTIFY activeRowChanged)
    Q_PROPERTY(QStringList presetNames READ presetNames CONSTANT)
    Q_PROPERTY(int presetIndex READ presetIndex NOTIFY presetChanged)
    Q_PROPERTY(QString presetDescription READ presetDescription NOTIFY presetChanged)
public:
    using ToolCheck = std::function<QStringList()>;

    /// The engine and the viewer must outlive it. findMissingTools returns a sentence for each missing tool.
    QueueViewModel(BurnInEngine &engine, FileViewer &viewer,
                   ToolCheck findMissingTools = media::FFmpegLocator::missingTools,
                   QObject *parent = nullptr);

    JobListModel *jobs() { return &m_jobs; }
    bool isEmpty() const { return m_summary.jobCount == 0; }
    bool hasQueuedJobs() const { return m_summary.queuedCount > 0; }
    bool hasSelectedQueuedJobs() const { return m_summary.selectedQueuedCount > 0; }
    bool hasCompletedJobs() const { return m_summary.doneCount + m_summary.failedCount > 0; }
    bool allQueuedSelected() const { return m_summary.allQueuedSelected(); }
    double overallProgress() const { return m_summary.overallProgress; }
    QString doneText() const { return m_summary.doneText(); }
    bool isRunning() const { return m_isRunning; }
    /// What is wrong with ffmpeg and ffprobe, a line each, as of the last check; empty when nothing is.
    QString missingTools() const { return m_missingTools; }
    /// The output folder of the first job; empty when there is none.
    QString outputDirPath() const { return JobText::oneLine(m_outputDir.toLocalFile()); }
    /// The row of the job that is being processed; -1 while there is none.
    int activeRow() const { return m_activeRow; }
    static QStringList presetNames() { return QualityPreset::rawValues(); }
    int presetIndex() const;
    QString presetDescription() const { return m_preset.descriptionText(); }

    Q_INVOKABLE void choosePreset(int index);
    /// Whether a drop of these items would be accepted: there is a local file among them.
    Q_INVOKABLE static bool acceptsDrop(const QList<QUrl> &urls);
    /// Posts one enqueue call for each local file among dropped items.
    Q_INVOKABLE void handleDrop(const QList<QUrl> &urls);
    /// Adds the files and folders on the clipboard as a drop does.
    Q_INVOKABLE void paste();
    Q_INVOKABLE void removeFromQueue(const QString &jobId);
    Q_INVOKABLE void toggleSelected(const QString &jobId);
    Q_INVOKABLE void toggleBurnIn(const QString &jobId);
    Q_INVOKABLE void retry(const QString &jobId);
    /// Puts name, status and error of a failed job on the clipboard.
    Q_INVOKABLE void copyError(const QString &jobId);
    /// Selects all queued jobs, or none when all are selected.
    Q_INVOKABLE void toggleAllSelected();
    Q_INVOKABLE void clearCompleted();
    /// Also checks the tools.
    Q_INVOKABLE void start();
    Q_INVOKABLE void checkTools();
    /// Shows the output folder in the file viewer.
    Q_INVOKABLE void revealOutput();

Q_SIGNALS:
    void summaryChanged();
    void missingToolsChanged();
    void isRunningChanged();
    void outputDirChanged();
    void activeRowChanged();
    void presetChanged();

private:
    void scheduleRefresh();
    void refresh();
    template <typename Value>
    void assign(Value &shown, const Value &value, void (QueueViewModel::*changed)());

    BurnInEngine &m_engine;
    FileViewer &m_viewer;
    const ToolCheck m_findMissingTools;
    QTimer m_refreshTimer{this};
    QDeadlineTimer m_nextRefresh; ///< no refresh before
    JobListModel m_jobs;
    QueueSummary m_summary;
    QString m_missingTools;
    QUrl m_outputDir;
    int m_activeRow = -1;
    QualityPreset m_preset;
    bool m_isRunning = false;
};

} // namespace marrowcut
