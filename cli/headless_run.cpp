#include "headless_run.h"

#include "program_exit.h"

#include "engine/queue_summary.h"

#include <chrono>
#include <utility>

namespace marrowcut::cli
{

namespace
{

constexpr std::chrono::milliseconds redrawInterval{100};

std::unique_ptr<Reporter> makeReporter(const Request &request)
{
    if (request.json)
        return std::make_unique<JsonReporter>();
    if (request.quiet)
        return std::make_unique<Reporter>();
    if (LiveReporter::isPossible())
        return std::make_unique<LiveReporter>();
    return std::make_unique<PlainReporter>();
}

} // namespace

HeadlessRun::HeadlessRun(PreferenceStore &preferences, NotificationCenter &notifications,
                         const Request &request)
    : m_request(request)
    , m_engine(preferences, notifications)
    , m_reporter(makeReporter(request))
{
    m_redrawTimer.setSingleShot(true);
    m_redrawTimer.setInterval(redrawInterval);
    connect(&m_redrawTimer, &QTimer::timeout, this, &HeadlessRun::redraw);
    connect(&m_engine, &BurnInEngine::willChange, this, &HeadlessRun::scheduleRefresh);
    connect(&m_engine, &BurnInEngine::recorded, this, &HeadlessRun::reportRecorded);
}

bool HeadlessRun::queueItems()
{
    QList<RefusedItem> refused;
    for (const QString &name : m_request.unusableNames)
        refused.append({name, RefusedItem::Reason::nameIsNotText});
    refused += m_engine.enqueue(m_request.items, m_request.recursive ? Subfolders::enter : Subfolders::skip);
    reportRefused(refused);

    if (m_request.quality)
        m_engine.setQualityPreset(*m_request.quality);
    if (!m_request.burnIn) {
        const QList<ProxyJob> added = m_engine.jobs();
        for (const ProxyJob &job : added)
            m_engine.toggleBurnIn(job.id);
    }
    for (const ProxyJob &job : m_engine.jobs())
        m_reporter->queued(job);
    return !m_engine.jobs().isEmpty();
}

void HeadlessRun::reportRefused(const QList<RefusedItem> &refused)
{
    for (const RefusedItem &item : refused) {
        m_itemFailed = m_itemFailed || isFailure(item.reason);
        if (!m_request.quiet || isFailure(item.reason) || m_engine.jobs().isEmpty())
            m_reporter->refused(item);
    }
}

void HeadlessRun::start()
{
    if (m_request.encoder == automaticEncoder()) {
        begin(EncoderResult{.choice = media::EncoderChoice()});
        return;
    }
    const auto resolve = [name = m_request.encoder, preset = m_engine.qualityPreset()](
                             const std::stop_token &stop) { return resolveEncoder(name, preset, stop); };
    m_encoderQuery.start(resolve, [this](const auto &encoder) { begin(encoder); });
}

/// Without a result, no thread could be started.
void HeadlessRun::begin(const std::optional<EncoderResult> &encoder)
{
    if (encoder && !encoder->choice) {
        end(toolMissing, encoder->problem, encoder->detail);
        return;
    }
    if (encoder) {
        m_engine.setEncoderChoice(*encoder->choice);
        m_engine.start();
        m_running = m_engine.isRunning();
    }
    if (!m_running)
        end(someFailed, noThreadText());
}

void HeadlessRun::end(int exitStatus, const QString &problem, const QString &detail)
{
    printError(problem, detail);
    Q_EMIT ended(exitStatus);
}

bool HeadlessRun::interrupt()
{
    const bool threadsEnded = m_encoderQuery.cancel() && m_engine.interrupt(quitLimit);
    m_reporter->interrupted();
    return threadsEnded;
}

void HeadlessRun::scheduleRefresh()
{
    // The engine announces an edit before it applies it; it is applied when the event loop is back.
    if (!std::exchange(m_refreshScheduled, true))
        QMetaObject::invokeMethod(this, &HeadlessRun::refresh, Qt::QueuedConnection);
}

void HeadlessRun::refresh()
{
    m_refreshScheduled = false;
    if (!m_running)
        return;
    reportChanges();
    reportWaiting();
    if (m_engine.isRunning()) {
        if (!m_redrawTimer.isActive())
            m_redrawTimer.start();
        return;
    }
    m_running = false;
    m_reporter->finished(m_engine.jobs());
    const bool failed = m_itemFailed || QueueSummary::of(m_engine.jobs()).failedCount > 0;
    Q_EMIT ended(failed ? someFailed : allDone);
}

/// Takes constant time for each change, however long the queue: jobs run in list order, one at a time, so
/// only the first that is not finished can have changed.
void HeadlessRun::reportChanges()
{
    const QList<ProxyJob> &jobs = m_engine.jobs();
    for (; m_current < jobs.size(); ++m_current) {
        const ProxyJob &job = jobs[m_current];
        if (std::exchange(m_reportedStatus, job.status) != job.status)
            m_reporter->statusChanged(job);
        if (!job.status.isFinished()) {
            m_reporter->progressed(job, jobs);
            return;
        }
        m_reportedStatus = JobStatus::queued();
    }
}

void HeadlessRun::redraw()
{
    if (m_running && m_current < m_engine.jobs().size())
        m_reporter->redraw(m_engine.jobs()[m_current], m_engine.jobs());
}

void HeadlessRun::reportWaiting()
{
    const std::optional<QUuid> waiting = m_engine.waitingJob();
    if (std::exchange(m_reportedWaiting, waiting) != waiting && waiting)
        m_reporter->waiting(m_engine.jobs()[m_current]); // the only job whose turn it can be
}

void HeadlessRun::reportRecorded(const QUuid &id, const QString &manifestLine,
                                 const std::optional<media::ProbedMetadata> &meta)
{
    reportChanges();                                      // the job's own changes come first
    const ProxyJob &job = m_engine.jobs()[m_current - 1]; // none of the next job came yet
    Q_ASSERT(job.id == id);
    m_reporter->recorded(job, manifestLine, meta);
}

} // namespace marrowcut::cli
