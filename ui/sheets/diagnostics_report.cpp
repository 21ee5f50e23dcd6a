#include "ui/sheets/diagnostics_report.h"

#include "media/ffmpeg_locator.h"
#include "ui/sheets/diagnostics_text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace marrowcut
{

using namespace std::chrono_literals;

DiagnosticsReport::DiagnosticsReport(JobsProvider jobs, QObject *parent)
    : DiagnosticsReport(std::move(jobs), media::FFmpegLocator::ffmpegPath(), 5s, parent)
{
}

DiagnosticsReport::DiagnosticsReport(JobsProvider jobs, const QString &ffmpegPath,
                                     std::chrono::milliseconds limit, QObject *parent)
    : QObject(parent)
    , m_jobs(std::move(jobs))
    , m_toShow(ffmpegPath, limit)
    , m_toCopy(ffmpegPath, limit)
{
}

void DiagnosticsReport::open()
{
    ++m_opening;
    setCopied(false);
    const Draft draft = draftOfNow();
    show(draft(QStringLiteral("…")));
    m_toShow.ask([this, draft](const QString &versionLine) {
        if (!m_copied) // else what was copied is shown, which is newer
            show(draft(versionLine));
    });
}

void DiagnosticsReport::copyToClipboard()
{
    m_toCopy.ask([this, draft = draftOfNow(), opening = m_opening](const QString &versionLine) {
        const QString text = draft(versionLine);
        QGuiApplication::clipboard()->setText(text);
        if (opening != m_opening) // another sheet stands there by now
            return;
        setCopied(true);
        show(text);
    });
}

DiagnosticsReport::Draft DiagnosticsReport::draftOfNow() const
{
    return [facts = DiagnosticsFacts::current(), jobs = m_jobs()](const QString &versionLine) {
        return diagnosticsText(facts, jobs, versionLine);
    };
}

void DiagnosticsReport::show(const QString &text)
{
    m_reportText = text;
    Q_EMIT reportTextChanged();
}

void DiagnosticsReport::setCopied(bool copied)
{
    if (m_copied == copied)
        return;
    m_copied = copied;
    Q_EMIT copiedChanged();
}

} // namespace marrowcut
