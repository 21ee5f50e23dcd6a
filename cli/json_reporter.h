#pragma once

#include "reporter.h"

class QJsonObject;

namespace marrowcut::cli
{

/// For programs: one JSON object per line and event on standard output, each line written at once.
/// docs/json-events.md is the contract; what it promises changes only together with its version.
class JsonReporter : public Reporter
{
public:
    void refused(const RefusedItem &item) override;
    void queued(const ProxyJob &job) override;
    void statusChanged(const ProxyJob &job) override;
    void progressed(const ProxyJob &runningJob, const QList<ProxyJob> &jobs) override;
    void recorded(const ProxyJob &job, const QString &manifestLine) override;
    void finished(const QList<ProxyJob> &jobs) override;
    void interrupted() override;

private:
    qint64 m_refusedCount = 0;
};

} // namespace marrowcut::cli
