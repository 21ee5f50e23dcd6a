#include "headless_run.h"

#include "console_text.h"
#include "exit_status.h"
#include "live_reporter.h"
#include "plain_reporter.h"

#include "engine/queue_summary.h"

#include <QTextStream>

namespace marrowcut::cli
{

namespace
{

using Reason = RefusedItem::Reason;

std::unique_ptr<Reporter> makeReporter(bool quiet)
{
    if (quiet)
        return std::make_unique<QuietReporter>();
    if (standardOutputIsTerminal())
        return std::make_unique<LiveReporter>();
    return std::make_unique<PlainReporter>();
}

QString reasonText(Reason reason)
{
    switch (reason) {
    case Reason::noSuchPath:
        return QStringLiteral("no such file or folder");
    case Reason::notAVideoFile:
        return QStringLiteral("not an MXF, MOV or MP4 file");
    case Reason::folderWithoutVideoFiles:
        return QStringLiteral("no MXF, MOV or MP4 files in this folder");
    case Reason::unreadableFolder:
        return QStringLiteral("this folder cannot be read");
    case Reason::nameIsNotText:
        return QStringLiteral("the name is not valid UTF-8 text; rename the file first");
    }
    Q_UNREACHABLE();
}

/// Something that was meant and cannot be done, unlike what a folder or a wildcard merely brought along.
bool isFailure(Reason reason)
{
    return reason == Reason::noSuchPath || reason == Reason::unreadableFolder ||
           reason == Reason::nameIsNotText;
}

} // namespace

HeadlessRun::HeadlessRun(PreferenceStore &preferences, NotificationCenter &notifications,
                         const Request &request)
    : m_request(request)
    , m_engine(preferences, notifications)
    , m_reporter(makeReporter(request.quiet))
{
    connect(&m_engine, &BurnInEngine::willChange, this, &HeadlessRun::scheduleRefresh);
}

bool HeadlessRun::queueItems()
{
    QList<RefusedItem> refused;
    for (const QString &name : m_request.unusableNames)
        refused.append({name, Reason::nameIsNotText});
    refused += m_engine.enqueue(m_request.items);
    tellRefused(refused);

    if (m_request.quality)
        m_engine.setQualityPreset(*m_request.quality);
    const QList<ProxyJob> jobs = m_engine.jobs();
    for (const ProxyJob &job : jobs) {
        if (!m_request.burnIn)
            m_engine.toggleBurnIn(job.id);
        m_reportedStatuses.append(job.status);
    }
    return !jobs.isEmpty();
}

void HeadlessRun::tellRefused(const QList<RefusedItem> &refused)
{
    QTextStream err(stderr);
    for (const RefusedItem &item : refused) {
        m_itemFailed = m_itemFailed || isFailure(item.reason);
        if (!m_request.quiet || isFailure(item.reason) || m_engine.jobs().isEmpty())
            err << "marrowcut-cli: " << printable(item.path) << ": " << reasonText(item.reason) << '\n';
    }
}

void HeadlessRun::start()
{
    m_running = true;
    m_engine.start();
}

bool HeadlessRun::interrupt()
{
    const bool hasEnded = m_engine.interrupt(std::chrono::milliseconds(800));
    m_reporter->interrupted();
    return hasEnded;
}

void HeadlessRun::scheduleRefresh()
{
    // The engine speaks before it applies an edit; afterwards is when the event loop is back.
    if (!std::exchange(m_refreshScheduled, true))
        QMetaObject::invokeMethod(this, &HeadlessRun::refresh, Qt::QueuedConnection);
}

void HeadlessRun::refresh()
{
    m_refreshScheduled = false;
    if (!m_running)
        return;
    reportJobs();
    if (m_engine.isRunning())
        return;
    m_running = false;
    m_reporter->finished(m_engine.jobs());
    const bool failed = m_itemFailed || QueueSummary::of(m_engine.jobs()).failedCount > 0;
    Q_EMIT ended(failed ? someFailed : allDone);
}

void HeadlessRun::reportJobs()
{
    // Jobs run in list order, one at a time: what moves is the first that is not finished.
    const QList<ProxyJob> &jobs = m_engine.jobs();
    while (m_firstUnfinished < jobs.size()) {
        const ProxyJob &job = jobs[m_firstUnfinished];
        if (job.status != m_reportedStatuses[m_firstUnfinished])
            m_reporter->statusChanged(job);
        m_reportedStatuses[m_firstUnfinished] = job.status;
        if (!job.status.isFinished()) {
            m_reporter->progressed(job, jobs);
            return;
        }
        ++m_firstUnfinished;
    }
}

} // namespace marrowcut::cli
