#include "ui/main/engine_queue_source.h"

#include "engine/burn_in_engine.h"
#include "engine/video_files.h"

#include <algorithm>
#include <utility>

namespace marrowcut
{

namespace
{

constexpr qsizetype clipsPerFrame = 500; // the engine takes some 6 us for each

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
    if (!m_waiting.isEmpty() && !std::exchange(m_isFeeding, true))
        QMetaObject::invokeMethod(this, &EngineQueueSource::feedEngine, Qt::QueuedConnection);
}

void EngineQueueSource::feedEngine()
{
    const qsizetype count = std::min(m_waiting.size(), clipsPerFrame);
    m_engine.enqueue(m_waiting.first(count));
    m_waiting.remove(0, count);
    m_isFeeding = false;
    feedLater();
}

void EngineQueueSource::removeFromQueue(const QUuid &id)
{
    m_engine.removeFromQueue(id);
}

void EngineQueueSource::setAllSelected(bool selected)
{
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
    m_engine.start();
}

} // namespace marrowcut
