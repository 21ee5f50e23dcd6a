#include "reporter.h"

#include "console_text.h"

#include "engine/model/proxy_job.h"
#include "engine/queue_summary.h"
#include "platform/outside_text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace marrowcut::cli
{

namespace
{

constexpr int gapColumns = 2;
constexpr int leastNameColumns = 8;
constexpr int usualNameColumns = 40;

/// What fits beside a name. The narrower the terminal, the less is shown.
struct Form {
    int barColumns;
    bool showsRemaining;

    /// Of bar, percentage and a long remaining time, with the gaps between them.
    int columns() const { return (barColumns > 0 ? barColumns + 2 : 0) + 4 + (showsRemaining ? 2 + 12 : 0); }
};

struct Layout {
    int columns;     ///< of the whole line
    int nameColumns; ///< available for a name
    Form form;
};

/// What a line that is redrawn shows.
struct Line {
    QString name;
    QString state;                       ///< a percentage or a status
    std::optional<double> fraction = {}; ///< for the bar
    QString remaining = {};
};

int terminalColumns()
{
    winsize size = {};
    const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : 80;
}

/// How many rows lines take now: they wrap when the terminal has become narrower.
int terminalRows(const QList<int> &widths)
{
    int rows = 0;
    for (const int width : widths)
        rows += std::max(1, (width + terminalColumns() - 1) / terminalColumns());
    return rows;
}

Layout terminalLayout()
{
    const int columns = terminalColumns() - 1; // the last column would wrap on some terminals
    constexpr int fairNameColumns = 16;
    constexpr std::array forms = {Form{24, true}, Form{8, true}, Form{8, false}, Form{0, false}};
    const auto *form = std::ranges::find_if(forms, [columns](const Form &candidate) {
        return columns - candidate.columns() - gapColumns >= fairNameColumns;
    });
    const Form &chosen = form == forms.end() ? forms.back() : *form;
    return {columns, columns - chosen.columns() - gapColumns, chosen};
}

QString padded(const QString &text, int columns)
{
    return text + QString(std::max(columns - columnWidth(text), 0) + gapColumns, QLatin1Char(' '));
}

/// Aligned with the lines that are redrawn, but with the whole name: the terminal may wrap it.
QString finishedLine(const ProxyJob &job)
{
    const int nameColumns = std::min(terminalLayout().nameColumns, usualNameColumns);
    return padded(printable(job.fileName()), nameColumns) + printable(job.status.label()) + QLatin1Char('\n');
}

QString drawnLine(const Line &line, const Layout &layout, int nameColumns)
{
    const QString gap(gapColumns, QLatin1Char(' '));
    QString rest = line.state;
    if (line.fraction && layout.form.barColumns > 0)
        rest = bar(*line.fraction, layout.form.barColumns) + gap + rest;
    if (layout.form.showsRemaining && !line.remaining.isEmpty())
        rest += gap + line.remaining;
    const int room = std::min(nameColumns, layout.columns - gapColumns - columnWidth(rest));
    if (room < leastNameColumns)
        return elidedMiddle(line.state, layout.columns);
    return padded(elidedMiddle(line.name, room), room) + rest;
}

/// The lines, their bars below each other, none wider than the terminal.
QStringList drawnLines(const QList<Line> &lines)
{
    const Layout layout = terminalLayout();
    int nameColumns = usualNameColumns;
    for (const Line &line : lines)
        nameColumns = std::max(nameColumns, columnWidth(line.name));
    QStringList texts;
    for (const Line &line : lines)
        texts.append(drawnLine(line, layout, std::min(nameColumns, layout.nameColumns)));
    return texts;
}

Line runningLine(const ProxyJob &job)
{
    if (!job.status.isEncoding())
        return {printable(job.fileName()), job.status.label()};
    return {printable(job.fileName()), percentage(job.progress), job.progress, job.remainingTimeText()};
}

Line overallLine(const QList<ProxyJob> &jobs)
{
    const QueueSummary summary = QueueSummary::of(jobs);
    return {summary.doneText(), percentage(summary.overallProgress), summary.overallProgress};
}

} // namespace

bool LiveReporter::isPossible()
{
    const char *type = std::getenv("TERM");
    return isatty(STDOUT_FILENO) && type && std::string_view(type) != "dumb";
}

void LiveReporter::waiting(const ProxyJob &job)
{
    write({});
    PlainReporter::waiting(job);
}

void LiveReporter::statusChanged(const ProxyJob &job)
{
    if (!job.status.isFinished())
        return;
    // A failure goes to standard error, which usually is the same terminal.
    if (!job.status.isFailed() || !isatty(STDERR_FILENO))
        m_finishedLines += finishedLine(job);
    if (job.status.isFailed()) {
        write({});
        PlainReporter::statusChanged(job);
    }
}

void LiveReporter::redraw(const ProxyJob &runningJob, const QList<ProxyJob> &jobs)
{
    write(drawnLines({runningLine(runningJob), overallLine(jobs)}));
}

void LiveReporter::finished(const QList<ProxyJob> &jobs)
{
    write({});
    m_out << '\n';
    PlainReporter::finished(jobs);
}

void LiveReporter::interrupted()
{
    write({});
}

/// Replaces the drawn lines by the finished ones and these.
void LiveReporter::write(const QStringList &drawnLines)
{
    if (!m_drawnWidths.isEmpty()) // up to the first drawn line, then clear to the end of the screen
        m_out << QStringLiteral("\r\x1b[%1A\x1b[J").arg(terminalRows(m_drawnWidths));
    m_out << std::exchange(m_finishedLines, {});
    m_drawnWidths.clear();
    for (const QString &line : drawnLines) {
        m_out << line << '\n';
        m_drawnWidths.append(columnWidth(line));
    }
    m_out << Qt::flush;
}

} // namespace marrowcut::cli
