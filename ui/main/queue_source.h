#pragma once

#include "engine/model/proxy_job.h"
#include "engine/model/quality_preset.h"

#include <QList>
#include <QObject>

namespace marrowcut
{

/// The queue as the window sees it: BurnInEngine's state and operations, or a scripted list of jobs. The
/// contract is the engine's: willChange() announces an edit before it is applied. Main thread.
class QueueSource : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    virtual const QList<ProxyJob> &jobs() const = 0;
    virtual bool isRunning() const = 0;
    virtual QualityPreset qualityPreset() const = 0;

    virtual void setQualityPreset(QualityPreset preset) = 0;
    virtual void enqueue(const QList<QUrl> &urls) = 0;
    virtual void removeFromQueue(const QUuid &id) = 0;
    virtual void setAllSelected(bool selected) = 0;
    virtual void toggleSelected(const QUuid &id) = 0;
    virtual void toggleBurnIn(const QUuid &id) = 0;
    virtual void retry(const QUuid &id) = 0;
    virtual void clearCompleted() = 0;
    virtual void start() = 0;

Q_SIGNALS:
    void willChange();
};

} // namespace marrowcut
