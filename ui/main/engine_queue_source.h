#pragma once

#include "engine/video_files.h"
#include "ui/main/queue_source.h"

namespace marrowcut
{

class BurnInEngine;

/// The queue of an engine, which must outlive it. What is dropped is read and queued a part at a time, so
/// that the window can draw in between.
class EngineQueueSource : public QueueSource
{
    Q_OBJECT
public:
    explicit EngineQueueSource(BurnInEngine &engine, QObject *parent = nullptr);

    const QList<ProxyJob> &jobs() const override;
    bool isRunning() const override;
    QualityPreset qualityPreset() const override;

    void setQualityPreset(QualityPreset preset) override;
    void enqueue(const QList<QUrl> &urls) override;
    void removeFromQueue(const QUuid &id) override;
    void setAllSelected(bool selected) override;
    void toggleSelected(const QUuid &id) override;
    void toggleBurnIn(const QUuid &id) override;
    void retry(const QUuid &id) override;
    void clearCompleted() override;
    void start() override;

private:
    void feedLater();
    void feed(qsizetype count);
    void feedAll();

    BurnInEngine &m_engine;
    VideoFileReader m_dropped; ///< what the engine does not have yet
    bool m_isFeeding = false;  ///< a part is about to follow
};

} // namespace marrowcut
