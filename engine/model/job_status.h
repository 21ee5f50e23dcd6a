#pragma once

#include <QString>

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

    Case kind() const { return m_case; }
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

} // namespace marrowcut
