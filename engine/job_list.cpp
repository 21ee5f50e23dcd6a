#include "engine/job_list.h"

#include <algorithm>
#include <iterator>
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

void JobList::removeIf(const Predicate &matches)
{
    if (std::none_of(m_jobs.cbegin(), m_jobs.cend(), matches))
        return;
    m_announce();
    const QList<ProxyJob> before = std::exchange(m_jobs, {});
    std::remove_copy_if(before.cbegin(), before.cend(), std::back_inserter(m_jobs), matches);
    updateIndexes(before, matches);
}

/// Hashing the sources is what takes time, so the fewer are hashed: those that stay or those that go.
void JobList::updateIndexes(const QList<ProxyJob> &before, const Predicate &isGone)
{
    const bool fewStay = m_jobs.size() < before.size() / 2;
    if (fewStay) {
        m_positions.clear();
        m_sources.clear();
    }
    for (const ProxyJob &job : before) {
        const bool gone = isGone(job);
        if (gone && !fewStay) {
            m_positions.remove(job.id);
            m_sources.remove(job.sourceURL);
        } else if (!gone && fewStay) {
            m_sources.insert(job.sourceURL);
        }
    }
    for (qsizetype position = 0; position < m_jobs.size(); ++position)
        m_positions.insert(std::as_const(m_jobs)[position].id, position);
}

} // namespace marrowcut
