#include "ui/main/engine_queue_source.h"

#include "engine/burn_in_engine.h"
#include "engine/video_files.h"

#include <algorithm>
#include <utility>

namespace marrowcut
{

namespace
{

/// The engine takes some 4 us for each. A part grows with the queue, since showing it does too.
qsizetype clipsPerFrame(qsizetype queued)
{
    return std::max<qsizetype>(500, queued / 10);
}

} // namespace

EngineQueueSource::EngineQueueSource(BurnInEngine &engine, QObject *parent)
    : QueueSource(parent)
    , m_engine(engine)
{
    connect(&engine, &BurnInEngine::willChange, this, &QueueSource::willChange);
}

const QList<ProxyJob> &EngineQueueSource::jobs() const
{
    return m_engine.jobs();
}

bool EngineQueueSource::isRunning() const
{
    return m_engine.isRunning();
}

QualityPreset EngineQueueSource::qualityPreset() const
{
    return m_engine.qualityPreset();
}

void EngineQueueSource::setQualityPreset(QualityPreset preset)
{
    m_engine.setQualityPreset(preset);
}

void EngineQueueSource::enqueue(const QList<QUrl> &urls)
{
    m_waiting += expandVideoFiles(urls).videoFiles;
    feedLater();
}

void EngineQueueSource::feedLater()
{
    if (m_waiting.isEmpty() || std::exchange(m_isFeeding, true))
        return;
    const auto feedPart = [this] {
        m_isFeeding = false;
        feed(std::min(m_waiting.size(), clipsPerFrame(jobs().size())));
        feedLater();
    };
    QMetaObject::invokeMethod(this, feedPart, Qt::QueuedConnection);
}

void EngineQueueSource::feed(qsizetype count)
{
    m_engine.enqueueVideoFiles(m_waiting.first(count));
    m_waiting.remove(0, count);
}

void EngineQueueSource::removeFromQueue(const QUuid &id)
{
    m_engine.removeFromQueue(id);
}

void EngineQueueSource::setAllSelected(bool selected)
{
    feed(m_waiting.size()); // what was dropped counts, whether it is listed yet or not
    m_engine.setAllSelected(selected);
}

void EngineQueueSource::toggleSelected(const QUuid &id)
{
    m_engine.toggleSelected(id);
}

void EngineQueueSource::toggleBurnIn(const QUuid &id)
{
    m_engine.toggleBurnIn(id);
}

void EngineQueueSource::retry(const QUuid &id)
{
    m_engine.retry(id);
}

void EngineQueueSource::clearCompleted()
{
    m_engine.clearCompleted();
}

void EngineQueueSource::start()
{
    feed(m_waiting.size());
    m_engine.start();
}

} // namespace marrowcut
