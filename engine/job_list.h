#pragma once

#include "engine/model/proxy_job.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <functional>

namespace marrowcut
{

/// The jobs in the order of their enqueuing. Every edit is announced once, before it is applied.
/// Lookups by id and by source take constant time. Not thread-safe.
class JobList
{
public:
    /// announce must not edit the list.
    explicit JobList(std::function<void()> announce);

    const QList<ProxyJob> &jobs() const { return m_jobs; }
    bool containsSource(const QUrl &sourceURL) const { return m_sources.contains(sourceURL); }
    /// Null when no job has the id. Valid until the next edit.
    const ProxyJob *find(const QUuid &id) const;

    void append(const ProxyJob &job);

    /// Sets one field of a job, as one edit; nothing when no job has the id.
    template <typename Value>
    void set(const QUuid &id, Value ProxyJob::*field, const std::type_identity_t<Value> &value)
    {
        const auto position = m_positions.constFind(id);
        if (position == m_positions.cend())
            return;
        m_announce();
        m_jobs[*position].*field = value;
    }

    /// Removes every job that matches, as one edit; nothing is announced when none does.
    void removeIf(const std::function<bool(const ProxyJob &)> &matches);

private:
    std::function<void()> m_announce;
    QList<ProxyJob> m_jobs;
    QHash<QUuid, qsizetype> m_positions;
    QSet<QUrl> m_sources;
};

} // namespace marrowcut
