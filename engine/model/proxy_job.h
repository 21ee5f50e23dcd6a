#pragma once

#include "engine/model/job_status.h"

#include <QString>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace marrowcut
{

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
