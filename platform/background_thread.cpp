#include "platform/background_thread.h"

#include <system_error>

namespace marrowcut
{

namespace
{

void perform(const BackgroundThread::Work &work, const std::stop_token &stop, std::promise<void> &ended)
{
    try {
        work(stop);
    } catch (const Interrupted &) { // the caller asked for the end
    }
    ended.set_value();
}

} // namespace

bool BackgroundThread::start(Work work)
{
    m_thread = {};
    std::promise<void> ended;
    m_ended = ended.get_future();
    try {
        m_thread = std::jthread([work = std::move(work), ended = std::move(ended)](
                                    const std::stop_token &stop) mutable { perform(work, stop, ended); });
    } catch (const std::system_error &) {
        return false;
    }
    return true;
}

void BackgroundThread::abandon()
{
    requestStop();
    if (m_thread.joinable())
        m_thread.detach();
}

bool BackgroundThread::endedWithin(std::chrono::milliseconds limit) const
{
    return !m_thread.joinable() || m_ended.wait_for(limit) == std::future_status::ready;
}

} // namespace marrowcut
