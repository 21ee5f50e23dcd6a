#pragma once

#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace marrowcut
{

/// A job's status. A value; failed carries a short message.
class JobStatus
{
public:
    enum class Case { queued, probing, encoding, done, skipped, failed };

    static JobStatus queued() { return JobStatus(Case::queued); }
    static JobStatus probing() { return JobStatus(Case::probing); }
    static JobStatus encoding() { return JobStatus(Case::encoding); }
    static JobStatus done() { return JobStatus(Case::done); }
    static JobStatus skipped() { return JobStatus(Case::skipped); }
    static JobStatus failed(const QString &message) { return JobStatus(Case::failed, message); }

    bool isQueued() const { return m_case == Case::queued; }
    bool isProbing() const { return m_case == Case::probing; }
    bool isEncoding() const { return m_case == Case::encoding; }
    bool isFailed() const { return m_case == Case::failed; }
    /// done or skipped: the proxy is there.
    bool isSuccessful() const { return m_case == Case::done || m_case == Case::skipped; }
    /// done, skipped or failed: nothing more happens to the job by itself.
    bool isFinished() const { return isSuccessful() || isFailed(); }

    /// The failure's message; empty in any other status.
    const QString &message() const { return m_message; }
    /// The text shown for the status.
    QString label() const;

    bool operator==(const JobStatus &) const = default;

private:
    explicit JobStatus(Case statusCase, QString message = QString())
        : m_case(statusCase)
        , m_message(std::move(message))
    {
    }

    Case m_case;
    QString m_message;
};

/// One source file in the queue and its live state. Every lookup of a job goes by id.
struct ProxyJob {
    QUuid id;
    QUrl sourceURL; ///< absolute file URL
    JobStatus status = JobStatus::queued();
    double progress = 0;                ///< fraction of the encode done, 0.0 to 1.0
    bool isSelected = true;             ///< takes part in the next run
    bool burnInEnabled = true;          ///< text is burned into this job's proxy
    std::optional<double> etaSeconds;   ///< estimated seconds left; absent when unknown or not encoding
    std::optional<QString> errorDetail; ///< error output of the last failure

    /// A new job for a file, queued, with an identity of its own.
    static ProxyJob forSource(const QUrl &sourceURL)
    {
        ProxyJob job;
        job.id = QUuid::createUuid();
        job.sourceURL = sourceURL;
        return job;
    }

    /// Whether a run that starts now would process it.
    bool isSelectedAndQueued() const { return isSelected && status.isQueued(); }

    /// The source file's name with its extension.
    QString fileName() const { return sourceURL.fileName(QUrl::FullyDecoded); }

    /// Shown while the job is encoding and more than a second remains; else empty.
    QString remainingTimeText() const;

    bool operator==(const ProxyJob &) const = default;
};

/// A remaining time: "42s left", "5m left", "1h 7m left". Parts of a unit are dropped. Empty
/// for a value that cannot be shown: infinite, not a number, negative or beyond a 64-bit integer.
QString formatETA(double seconds);

} // namespace marrowcut
