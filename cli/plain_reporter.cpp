#include "reporter.h"

#include "console_text.h"

#include "engine/model/output_paths.h"
#include "engine/queue_summary.h"

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

/// Where the proxies are, failures last, and how many clips are done.
QString closingLines(const QList<ProxyJob> &jobs)
{
    QString proxies;
    QString failures;
    for (const ProxyJob &job : jobs) {
        if (job.status.isFailed())
            failures += closingLine(job);
        else if (jobs.size() <= fullListLimit)
            proxies += closingLine(job);
    }
    const QueueSummary summary = QueueSummary::of(jobs);
    QString counts = QStringLiteral("%1 of %2 done").arg(summary.doneCount).arg(summary.jobCount);
    if (summary.failedCount > 0)
        counts += QStringLiteral(", %1 failed").arg(summary.failedCount);
    return proxies + failures + counts + QLatin1Char('\n');
}

} // namespace

void PlainReporter::statusChanged(const ProxyJob &job)
{
    if (job.status.isFailed())
        Reporter::statusChanged(job);
    else
        m_out << printable(job.fileName()) << ": " << job.status.label() << '\n' << Qt::flush;
}

void PlainReporter::finished(const QList<ProxyJob> &jobs)
{
    m_out << closingLines(jobs) << Qt::flush;
}

} // namespace marrowcut::cli
