#pragma once

#include "engine/model/proxy_job.h"
#include "ui/sheets/ffmpeg_version_question.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <functional>

namespace marrowcut
{

/// The report behind the diagnostics sheet. Main thread only.
///
/// A report is of the moment of opening or of the press on the copy button; only ffmpeg's version line comes
/// later, within the limit (five seconds unless given).
class DiagnosticsReport : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    /// The report of the opening, or what was copied since. Its version line is "…" until it is known.
    Q_PROPERTY(QString reportText READ reportText NOTIFY reportTextChanged)
    /// Whether the report was copied since the sheet was opened.
    Q_PROPERTY(bool copied READ copied NOTIFY copiedChanged)
public:
    using JobsProvider = std::function<QList<ProxyJob>()>;

    /// The jobs are asked for each time that a report is begun.
    explicit DiagnosticsReport(JobsProvider jobs, QObject *parent = nullptr);
    DiagnosticsReport(JobsProvider jobs, const QString &ffmpegPath, std::chrono::milliseconds limit,
                      QObject *parent = nullptr);

    QString reportText() const { return m_reportText; }
    bool copied() const { return m_copied; }

    /// For a sheet that opens: begins its report and forgets that an earlier one was copied.
    Q_INVOKABLE void open();
    /// Puts a fresh report on the clipboard once it is complete, also when the sheet was closed meanwhile. A
    /// later press replaces one that is not yet carried out.
    Q_INVOKABLE void copyToClipboard();

Q_SIGNALS:
    void reportTextChanged();
    void copiedChanged();

private:
    /// All but the version line, which it takes.
    using Draft = std::function<QString(const QString &versionLine)>;

    Draft draftOfNow() const;
    void show(const QString &text);
    void setCopied(bool copied);

    const JobsProvider m_jobs;
    QString m_reportText;
    bool m_copied = false;
    int m_opening = 0; // how many times the sheet was opened
    FFmpegVersionQuestion m_toShow;
    FFmpegVersionQuestion m_toCopy;
};

} // namespace marrowcut
