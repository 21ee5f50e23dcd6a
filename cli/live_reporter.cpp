#include "live_reporter.h"

#include "console_text.h"
#include "engine/model/remaining_time_text.h"
#include "engine/queue_summary.h"
#include "plain_reporter.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace marrowcut::cli
{

namespace
{

constexpr int barColumns = 24;

int terminalColumns()
{
    winsize size = {};
    const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : 80;
}

/// The name to the left, in what the rest of the line leaves of the terminal's width.
QString lineWith(const QString &name, const QString &rest)
{
    const int room = terminalColumns() - 1 - columnWidth(rest) - 2;
    const int nameColumns = std::clamp(room, 8, 40);
    const QString shown = elidedMiddle(printable(name), nameColumns);
    const QString padding(std::max(nameColumns - columnWidth(shown), 0), QLatin1Char(' '));
    return elidedMiddle(shown + padding + QStringLiteral("  ") + rest, terminalColumns() - 1);
}

QString runningLine(const ProxyJob &job)
{
    QString rest = bar(job.progress, barColumns) + QStringLiteral("  ");
    rest += job.status.isEncoding() ? percentage(job.progress) : job.status.label();
    const QString remaining = formatETA(job.etaSeconds.value_or(0));
    if (job.etaSeconds.value_or(0) > 1.0 && !remaining.isEmpty())
        rest += QStringLiteral("  ") + remaining;
    return lineWith(job.fileName(), rest);
}

QString overallLine(const QList<ProxyJob> &jobs)
{
    const QueueSummary summary = QueueSummary::of(jobs);
    const QString done = QStringLiteral("%1 of %2 done").arg(summary.doneCount).arg(summary.jobCount);
    return lineWith(done, bar(summary.overallProgress, barColumns) + QStringLiteral("  ") +
                              percentage(summary.overallProgress));
}

} // namespace

bool standardOutputIsTerminal()
{
    const char *type = std::getenv("TERM");
    return isatty(STDOUT_FILENO) && type && std::string_view(type) != "dumb";
}

void LiveReporter::statusChanged(const ProxyJob &job)
{
    if (!job.status.isFinished())
        return;
    m_out << eraseDrawn() << lineWith(job.fileName(), printable(job.status.label())) << '\n'
          << indentedDetail(job) << Qt::flush;
}

void LiveReporter::progressed(const ProxyJob &runningJob, const QList<ProxyJob> &jobs)
{
    draw({runningLine(runningJob), overallLine(jobs)});
}

void LiveReporter::finished(const QList<ProxyJob> &jobs)
{
    m_out << eraseDrawn() << '\n' << closingLines(jobs) << Qt::flush;
}

void LiveReporter::interrupted()
{
    m_out << eraseDrawn() << "Interrupted.\n" << Qt::flush;
}

void LiveReporter::draw(const QStringList &lines)
{
    m_out << eraseDrawn() << lines.join(QLatin1Char('\n')) << '\n' << Qt::flush;
    m_drawnLines = lines.size();
}

QString LiveReporter::eraseDrawn()
{
    if (m_drawnLines == 0)
        return QString();
    // Up to the first drawn line, then clear to the end of the screen.
    const QString sequence = QStringLiteral("\r\x1b[%1A\x1b[J").arg(m_drawnLines);
    m_drawnLines = 0;
    return sequence;
}

} // namespace marrowcut::cli
