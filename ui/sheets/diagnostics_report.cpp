#include "ui/sheets/diagnostics_report.h"

#include "media/ffmpeg_locator.h"
#include "media/process_runner.h"
#include "ui/sheets/diagnostics_text.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace marrowcut
{

using namespace std::chrono_literals;

namespace
{

// Beside encodes on a busy machine, ffmpeg took more than five seconds to start.
constexpr auto versionLimit = 30s;

} // namespace

DiagnosticsReport::DiagnosticsReport(JobsProvider jobs, QObject *parent)
    : DiagnosticsReport(std::move(jobs), media::FFmpegLocator::ffmpegPath(), versionLimit, parent)
{
}

DiagnosticsReport::DiagnosticsReport(JobsProvider jobs, const QString &ffmpegPath,
                                     std::chrono::milliseconds limit, QObject *parent)
    : QObject(parent)
    , m_jobs(std::move(jobs))
    , m_ffmpegPath(ffmpegPath)
    , m_limit(limit)
{
    m_rebuildTimer.setSingleShot(true);
    m_rebuildTimer.setInterval(1s);
    connect(&m_rebuildTimer, &QTimer::timeout, this, &DiagnosticsReport::rebuild);
}

void DiagnosticsReport::open(QObject *sheet)
{
    m_sheet = sheet;
    m_versionLine = QStringLiteral("…");
    m_isQueryingToShow = false;
    setCopied(false);
    rebuild();
}

void DiagnosticsReport::rebuildLater()
{
    if (m_sheet && !m_rebuildTimer.isActive())
        m_rebuildTimer.start();
}

void DiagnosticsReport::rebuild()
{
    if (!m_sheet)
        return;
    show(currentDraft(), m_versionLine);
    if (std::exchange(m_isQueryingToShow, true)) // a new query would start the time limit anew
        return;
    queryVersion(m_queryToShow, [this](const QString &versionLine) {
        m_isQueryingToShow = false;
        show(m_draft, versionLine);
    });
}

void DiagnosticsReport::copyToClipboard()
{
    queryVersion(m_queryToCopy, [this, draft = currentDraft(), sheet = m_sheet](const QString &versionLine) {
        QGuiApplication::clipboard()->setText(draft(versionLine));
        if (sheet != m_sheet) // another sheet is open by now
            return;
        setCopied(true);
        m_queryToShow.cancel(0ms); // its version line is older
        m_isQueryingToShow = false;
        show(draft, versionLine);
    });
}

DiagnosticsReport::Draft DiagnosticsReport::currentDraft() const
{
    return [facts = DiagnosticsFacts::current(), jobs = m_jobs()](const QString &versionLine) {
        return diagnosticsText(facts, jobs, versionLine);
    };
}

void DiagnosticsReport::queryVersion(Query &query,
                                     const std::function<void(const QString &versionLine)> &deliver)
{
    const auto work = [path = m_ffmpegPath](const std::stop_token &stop) {
        try {
            return media::ProcessRunner::run(path, {QStringLiteral("-version")}, {.stop = stop}).stdout;
        } catch (const media::ProcessRunner::LaunchError &) {
            return QString();
        }
    };
    const auto deliverLine = [deliver](const std::optional<QString> &output) {
        deliver(ffmpegVersionLine(output.value_or(QString())));
    };
    query.start(work, deliverLine, m_limit);
}

void DiagnosticsReport::show(const Draft &draft, const QString &versionLine)
{
    m_draft = draft;
    m_versionLine = versionLine;
    m_reportText = draft(versionLine);
    Q_EMIT reportTextChanged();
}

void DiagnosticsReport::setCopied(bool copied)
{
    if (std::exchange(m_copied, copied) != copied)
        Q_EMIT copiedChanged();
}

} // namespace marrowcut
