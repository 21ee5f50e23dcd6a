#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <stop_token>
#include <thread>

namespace marrowcut
{

/// How long the program waits for a background thread when it quits.
constexpr std::chrono::milliseconds quitLimit{800};

/// Thrown on a background thread whose work is no longer wanted. On its way to the thread's entry no clip's
/// file is touched any more, but for the manifest line of a clip that is already finished.
struct Interrupted {
};

/// One background thread, whose end can be awaited with a limit: the system can hold a thread for as long as
/// a disk does not respond. Not thread-safe. Destruction requests a stop and waits for the end.
class BackgroundThread
{
public:
    /// May throw Interrupted.
    using Work = std::function<void(const std::stop_token &)>;

    /// Stops earlier work first, as destruction does. False when the system cannot start a thread.
    [[nodiscard]] bool start(Work work);
    void requestStop() { m_thread.request_stop(); }
    /// Requests a stop and no longer waits for the end. For work that refers to nothing that can go away.
    void abandon();
    /// Whether the work, if there was any, ended within the limit.
    [[nodiscard]] bool endedWithin(std::chrono::milliseconds limit) const;

private:
    std::future<void> m_ended;
    std::jthread m_thread;
};

} // namespace marrowcut
