#include "headless_run.h"

#include "complaint.h"
#include "exit_status.h"
#include "interruption.h"
#include "json_reporter.h"
#include "live_reporter.h"
#include "plain_reporter.h"
#include "refusal.h"

#include "engine/queue_summary.h"

#include <algorithm>
#include <utility>

namespace marrowcut::cli
{

namespace
{

std::unique_ptr<Reporter> makeReporter(const Request &request)
{
    if (request.json)
        return std::make_unique<JsonReporter>();
    if (request.quiet)
        return std::make_unique<QuietReporter>();
    if (standardOutputIsTerminal())
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
    connect(&m_engine, &BurnInEngine::willChange, this, &HeadlessRun::scheduleRefresh);
    connect(&m_engine, &BurnInEngine::recorded, this, &HeadlessRun::reportRecorded);
}

bool HeadlessRun::queueItems()
{
    QList<RefusedItem> refused;
    for (const QString &name : m_request.unusableNames)
        refused.append({name, RefusedItem::Reason::nameIsNotText});
    refused += m_engine.enqueue(m_request.items);
    tellRefused(refused);

    if (m_request.quality)
        m_engine.setQualityPreset(*m_request.quality);
    const QList<ProxyJob> added = m_engine.jobs();
    for (const ProxyJob &job : added) {
        if (!m_request.burnIn)
            m_engine.toggleBurnIn(job.id);
        m_reportedStatuses.append(job.status);
    }
    for (const ProxyJob &job : m_engine.jobs())
        m_reporter->queued(job);
    return !added.isEmpty();
}

void HeadlessRun::tellRefused(const QList<RefusedItem> &refused)
{
    for (const RefusedItem &item : refused) {
        m_itemFailed = m_itemFailed || isFailure(item.reason);
        if (!m_request.quiet || isFailure(item.reason) || m_engine.jobs().isEmpty())
            m_reporter->refused(item);
    }
}

void HeadlessRun::start()
{
    const auto find = [name = m_request.encoder, preset = m_engine.qualityPreset()](
                          const std::stop_token &stop) { return chooseEncoder(name, preset, stop); };
    if (!m_question.ask(find, [this](const EncoderAnswer &encoder) { begin(encoder); }))
        Q_EMIT couldNotStart(noThread(), someFailed);
}

void HeadlessRun::begin(const EncoderAnswer &encoder)
{
    if (!encoder.choice) {
        Q_EMIT couldNotStart(encoder.problem, toolMissing);
        return;
    }
    Q_ASSERT(m_engine.hasSelectedQueuedJobs());
    m_engine.setEncoderChoice(*encoder.choice);
    m_engine.start();
    m_running = m_engine.isRunning();
    if (!m_running)
        Q_EMIT couldNotStart(noThread(), someFailed);
}

bool HeadlessRun::interrupt()
{
    const bool haveEnded = m_question.interrupt(interruptLimit) && m_engine.interrupt(interruptLimit);
    m_reporter->interrupted();
    return haveEnded;
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

void HeadlessRun::reportRecorded(const QUuid &id, const QString &manifestLine)
{
    reportJobs(); // what led here comes first
    const QList<ProxyJob> &jobs = m_engine.jobs();
    const auto job = std::find_if(jobs.begin(), jobs.end(),
                                  [&id](const ProxyJob &candidate) { return candidate.id == id; });
    if (job != jobs.end())
        m_reporter->recorded(*job, manifestLine);
}

} // namespace marrowcut::cli
