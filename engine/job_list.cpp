#include "engine/job_list.h"

#include <algorithm>

namespace marrowcut
{

JobList::JobList(std::function<void()> announce)
    : m_announce(std::move(announce))
{
}

const ProxyJob *JobList::find(const QUuid &id) const
{
    const auto position = m_positions.constFind(id);
    return position == m_positions.cend() ? nullptr : &m_jobs[*position];
}

void JobList::append(const ProxyJob &job)
{
    m_announce();
    m_positions.insert(job.id, m_jobs.size());
    m_sources.insert(job.sourceURL);
    m_jobs.append(job);
}

void JobList::removeIf(const std::function<bool(const ProxyJob &)> &matches)
{
    const auto found = std::find_if(m_jobs.cbegin(), m_jobs.cend(), matches);
    if (found == m_jobs.cend())
        return;
    const qsizetype first = found - m_jobs.cbegin();
    m_announce();
    const QList<ProxyJob> before = m_jobs;
    m_jobs = before.first(first);
    m_jobs.reserve(before.size());
    for (qsizetype position = first; position < before.size(); ++position) {
        const ProxyJob &job = before[position];
        if (matches(job)) {
            m_positions.remove(job.id);
            m_sources.remove(job.sourceURL);
        } else {
            m_positions[job.id] = m_jobs.size();
            m_jobs.append(job);
        }
    }
}

} // namespace marrowcut
