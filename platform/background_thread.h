#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <stop_token>
#include <thread>

namespace marrowcut
{

/// Work beside the main thread, whose end can be waited for with a limit: the system may hold a thread for as
/// long as a disk does not answer. Used by one thread. Destruction asks the work to stop and waits for its
/// end.
class BackgroundThread
{
public:
    /// May throw Interrupted, which ends it and nothing else.
    using Work = std::function<void(const std::stop_token &)>;

    /// Stops earlier work first, as destruction does. False when the system has no thread to give.
    [[nodiscard]] bool start(Work work);
    void requestStop() { m_thread.request_stop(); }
    /// Whether the work, if there was any, ended within the limit.
    [[nodiscard]] bool endedWithin(std::chrono::milliseconds limit) const;

private:
    std::future<void> m_ended;
    std::jthread m_thread;
};

} // namespace marrowcut
