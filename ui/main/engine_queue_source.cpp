#include "ui/main/engine_queue_source.h"

#include "engine/burn_in_engine.h"

#include <algorithm>
#include <utility>

namespace marrowcut
{

namespace
{

/// Reading takes some 1 us for each, the engine 4. A part grows with the queue, since showing it does too.
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
    m_dropped.add(urls);
    feedLater();
}

void EngineQueueSource::feedLater()
{
    if (m_dropped.atEnd() || std::exchange(m_isFeeding, true))
        return;
    const auto feedPart = [this] {
        m_isFeeding = false;
        feed(clipsPerFrame(jobs().size()));
        feedLater();
    };
    QMetaObject::invokeMethod(this, feedPart, Qt::QueuedConnection);
}

void EngineQueueSource::feed(qsizetype count)
{
    m_engine.enqueueVideoFiles(m_dropped.read(count).videoFiles);
}

void EngineQueueSource::feedAll()
{
    m_engine.enqueueVideoFiles(m_dropped.read().videoFiles);
}

void EngineQueueSource::removeFromQueue(const QUuid &id)
{
    m_engine.removeFromQueue(id);
}

void EngineQueueSource::setAllSelected(bool selected)
{
    feedAll(); // what was dropped counts, whether it is listed yet or not
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
    feedAll();
    m_engine.start();
}

} // namespace marrowcut
