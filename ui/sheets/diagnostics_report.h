#pragma once

#include "engine/model/proxy_job.h"
#include "platform/background_query.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <functional>

namespace marrowcut
{

/// The report behind the diagnostics sheet. Main thread only.
///
/// A report describes the moment it is built: at opening, after changes of the jobs while the sheet exists,
/// and at each copy. Only ffmpeg's version line follows later; a tool that exceeds the limit counts as
/// unavailable.
class DiagnosticsReport : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the application")
    /// The newest report. Its version line is "…" until the first result after opening.
    Q_PROPERTY(QString reportText READ reportText NOTIFY reportTextChanged)
    /// Whether the report was copied since the sheet was opened.
    Q_PROPERTY(bool copied READ copied NOTIFY copiedChanged)
public:
    using JobsProvider = std::function<QList<ProxyJob>()>;

    /// The jobs are read each time that a report is built.
    explicit DiagnosticsReport(JobsProvider jobs, QObject *parent = nullptr);
    DiagnosticsReport(JobsProvider jobs, const QString &ffmpegPath, std::chrono::milliseconds limit,
                      QObject *parent = nullptr);

    QString reportText() const { return m_reportText; }
    bool copied() const { return m_copied; }

    /// Builds the first report of a sheet that opens. Until the sheet is destroyed, the report follows the
    /// jobs.
    Q_INVOKABLE void open(QObject *sheet);
    /// Puts a fresh report on the clipboard once it is complete, also when the sheet was closed meanwhile.
    /// Replaces a copy that is still waiting for its version line.
    Q_INVOKABLE void copyToClipboard();

    /// The jobs are about to change: rebuilds the report of an open sheet within a second, once for all
    /// changes.
    void rebuildLater();

Q_SIGNALS:
    void reportTextChanged();
    void copiedChanged();

private:
    using Query = BackgroundQuery<QString>;
    /// A report that lacks only the version line.
    using Draft = std::function<QString(const QString &versionLine)>;

    Draft currentDraft() const;
    void rebuild();
    void show(const Draft &draft, const QString &versionLine);
    void setCopied(bool copied);
    void queryVersion(Query &query, const std::function<void(const QString &versionLine)> &deliver);

    const JobsProvider m_jobs;
    const QString m_ffmpegPath;
    const std::chrono::milliseconds m_limit;
    QPointer<QObject> m_sheet;
    QTimer m_rebuildTimer;
    Draft m_draft;
    QString m_versionLine;
    QString m_reportText;
    bool m_copied = false;
    bool m_isQueryingToShow = false;
    Query m_queryToShow;
    Query m_queryToCopy;
};

} // namespace marrowcut
