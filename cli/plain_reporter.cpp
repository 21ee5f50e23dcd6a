#include "reporter.h"

#include "engine/model/output_paths.h"
#include "engine/queue_summary.h"
#include "platform/outside_text.h"

namespace marrowcut::cli
{

namespace
{

/// Above this number of clips the closing list names failures only.
constexpr qsizetype fullListLimit = 20;

QString closingLine(const ProxyJob &job)
{
    const QString result = job.status.isSuccessful()
                               ? printable(OutputPaths::forSource(job.sourceURL).finalOutput)
                               : QStringLiteral("no proxy (%1)").arg(printable(job.status.message()));
    return QStringLiteral("%1 → %2\n").arg(printable(job.fileName()), result);
}

/// A hint for those who would take the number for the camera's.
QString timecodeNotice(qsizetype count)
{
    if (count == 0)
        return QString();
    const QString clips = count == 1 ? QStringLiteral("1 clip: its container has")
                                     : QStringLiteral("%1 clips: their container has").arg(count);
    return QStringLiteral("SOURCE TC starts at 00:00:00:00 for %1 no timecode tag\n").arg(clips);
}

/// Where the proxies are, failures last.
QString resultLines(const QList<ProxyJob> &jobs)
{
    QString proxies;
    QString failures;
    for (const ProxyJob &job : jobs) {
        if (job.status.isFailed())
            failures += closingLine(job);
        else if (jobs.size() <= fullListLimit)
            proxies += closingLine(job);
    }
    return proxies + failures;
}

QString countLine(const QList<ProxyJob> &jobs)
{
    const QueueSummary summary = QueueSummary::of(jobs);
    QString counts = summary.doneText();
    if (summary.failedCount > 0)
        counts += QStringLiteral(", %1 failed").arg(summary.failedCount);
    return counts + QLatin1Char('\n');
}

} // namespace

void PlainReporter::statusChanged(const ProxyJob &job)
{
    if (job.status.isFailed())
        Reporter::statusChanged(job);
    else
        m_out << printable(job.fileName()) << ": " << job.status.label() << '\n' << Qt::flush;
}

void PlainReporter::recorded(const ProxyJob &job, const QString & /*manifestLine*/,
                             const std::optional<media::ProbedMetadata> &meta)
{
    if (job.status.isSuccessful() && meta && !meta->hasTimecodeTag)
        ++m_withoutTimecode;
}

void PlainReporter::finished(const QList<ProxyJob> &jobs)
{
    m_out << resultLines(jobs) << timecodeNotice(m_withoutTimecode) << countLine(jobs) << Qt::flush;
}

} // namespace marrowcut::cli
