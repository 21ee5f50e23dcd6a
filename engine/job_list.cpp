#include "engine/job_list.h"

#include <algorithm>
#include <utility>

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
    if (std::ranges::none_of(m_jobs, matches))
        return;
    m_announce();
    m_jobs.removeIf(matches);
    m_positions.clear();
    m_sources.clear();
    for (qsizetype position = 0; position < m_jobs.size(); ++position) {
        const ProxyJob &job = std::as_const(m_jobs)[position];
        m_positions.insert(job.id, position);
        m_sources.insert(job.sourceURL);
    }
}

} // namespace marrowcut
