#include "ui/sheets/diagnostics_report.h"

#include "media/ffmpeg_locator.h"
#include "media/process_runner.h"
#include "platform/interrupted.h"
#include "ui/sheets/diagnostics_text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace marrowcut
{

namespace
{

using namespace std::chrono_literals;

QString askFFmpeg(const QString &path, const std::stop_token &stop)
{
    try {
        const auto result = ProcessRunner::run(path, {QStringLiteral("-version")}, {.stop = stop});
        return ffmpegVersionLine(result.stdout);
    } catch (const ProcessRunner::LaunchError &) {
    } catch (const Interrupted &) {
    }
    return ffmpegVersionLine(QString());
}

} // namespace

DiagnosticsReport::DiagnosticsReport(JobsProvider jobs, QObject *parent)
    : DiagnosticsReport(std::move(jobs), FFmpegLocator::ffmpegPath(), 5s, parent)
{
}

DiagnosticsReport::DiagnosticsReport(JobsProvider jobs, const QString &ffmpegPath,
                                     std::chrono::milliseconds limit, QObject *parent)
    : QObject(parent)
    , m_jobs(std::move(jobs))
    , m_ffmpegPath(ffmpegPath)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(limit);
    connect(&m_limit, &QTimer::timeout, this, [this] { m_fetch.request_stop(); });
}

void DiagnosticsReport::open()
{
    setCopied(false);
    build(QStringLiteral("…"));
    fetchFFmpegVersion([] {});
}

void DiagnosticsReport::copyToClipboard()
{
    fetchFFmpegVersion([this] {
        QGuiApplication::clipboard()->setText(m_reportText);
        setCopied(true);
    });
}

void DiagnosticsReport::fetchFFmpegVersion(const std::function<void()> &whenBuilt)
{
    const int number = ++m_fetchNumber;
    const auto take = [this, number, whenBuilt](const QString &versionLine) {
        if (number != m_fetchNumber) // a later one has taken its place
            return;
        m_limit.stop();
        build(versionLine);
        whenBuilt();
    };
    m_limit.start();
    m_fetch = std::jthread([this, take, path = m_ffmpegPath](const std::stop_token &stop) {
        const QString versionLine = askFFmpeg(path, stop);
        QMetaObject::invokeMethod(
            this, [take, versionLine] { take(versionLine); }, Qt::QueuedConnection);
    });
}

void DiagnosticsReport::build(const QString &versionLine)
{
    DiagnosticsFacts facts = DiagnosticsFacts::current();
    facts.ffmpegVersionLine = versionLine;
    m_reportText = diagnosticsText(facts, m_jobs());
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
