#pragma once

#include "engine/model/proxy_job.h"

#include <QList>
#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <functional>
#include <thread>

namespace marrowcut
{

/// The report behind the diagnostics sheet. Main thread only; ffmpeg is asked for its version on a
/// thread of its own, for at most the limit (five seconds unless given), and is ended when the report is
/// destroyed.
class DiagnosticsReport : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    /// The report as last built.
    Q_PROPERTY(QString reportText READ reportText NOTIFY reportTextChanged)
    /// Whether the report was copied since the sheet was opened.
    Q_PROPERTY(bool copied READ copied NOTIFY copiedChanged)
public:
    using JobsProvider = std::function<QList<ProxyJob>()>;

    /// The jobs are asked for each time that the report is built.
    explicit DiagnosticsReport(JobsProvider jobs, QObject *parent = nullptr);
    DiagnosticsReport(JobsProvider jobs, const QString &ffmpegPath, std::chrono::milliseconds limit,
                      QObject *parent = nullptr);

    QString reportText() const { return m_reportText; }
    bool copied() const { return m_copied; }

    /// For a sheet that opens: builds the report and forgets that an earlier one was copied.
    Q_INVOKABLE void open();
    /// Builds a fresh report and puts it on the clipboard once it is complete.
    Q_INVOKABLE void copyToClipboard();

Q_SIGNALS:
    void reportTextChanged();
    void copiedChanged();

private:
    void fetchFFmpegVersion(const std::function<void()> &whenBuilt);
    void build(const QString &versionLine);
    void setCopied(bool copied);

    const JobsProvider m_jobs;
    const QString m_ffmpegPath;
    QString m_reportText;
    bool m_copied = false;
    int m_fetchNumber = 0;
    QTimer m_limit;
    std::jthread m_fetch; // last: its end is awaited before anything else goes
};

} // namespace marrowcut
