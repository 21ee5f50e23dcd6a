#include "plain_reporter.h"

#include "console_text.h"
#include "engine/failure_advice.h"
#include "engine/output_paths.h"
#include "engine/queue_summary.h"

#include <QStringList>

namespace marrowcut::cli
{

namespace
{

QString statusLines(const ProxyJob &job)
{
    return printable(job.fileName()) + QStringLiteral(": ") + printable(job.status.label()) +
           QLatin1Char('\n') + indentedDetail(job);
}

QString closingLine(const ProxyJob &job)
{
    const QString where = job.status.isSuccessful()
                              ? printable(OutputPaths::forSource(job.sourceURL).finalOutput)
                              : QStringLiteral("no proxy (%1)").arg(printable(job.status.message()));
    return QStringLiteral("%1 → %2\n").arg(printable(job.fileName()), where);
}

} // namespace

QString indentedDetail(const ProxyJob &job)
{
    QString lines;
    QString text = job.errorDetail.value_or(QString());
    if (const QString advice = failureAdvice(job); !advice.isEmpty())
        text += QStringLiteral("\nWhat to do: ") + advice;
    for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        lines += QStringLiteral("    ") + printable(line) + QLatin1Char('\n');
    return lines;
}

QString closingLines(const QList<ProxyJob> &jobs)
{
    QString lines;
    for (const ProxyJob &job : jobs)
        lines += closingLine(job);
    const QueueSummary summary = QueueSummary::of(jobs);
    lines += QStringLiteral("%1 of %2 done").arg(summary.doneCount).arg(summary.jobCount);
    if (summary.failedCount > 0)
        lines += QStringLiteral(", %1 failed").arg(summary.failedCount);
    return lines + QLatin1Char('\n');
}

void PlainReporter::statusChanged(const ProxyJob &job)
{
    m_out << statusLines(job) << Qt::flush;
}

void PlainReporter::finished(const QList<ProxyJob> &jobs)
{
    m_out << closingLines(jobs) << Qt::flush;
}

void PlainReporter::interrupted()
{
    m_err << "Interrupted.\n" << Qt::flush;
}

void QuietReporter::statusChanged(const ProxyJob &job)
{
    if (job.status.isFailed())
        m_err << statusLines(job) << Qt::flush;
}

} // namespace marrowcut::cli
