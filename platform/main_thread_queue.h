#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace marrowcut
{

/// Carries work from background threads to the thread that created the queue (the main thread), whose event
/// loop does it in the order of the calls, waited for or not.
class MainThreadQueue
{
public:
    MainThreadQueue();
    ~MainThreadQueue();
    MainThreadQueue(const MainThreadQueue &) = delete;
    MainThreadQueue &operator=(const MainThreadQueue &) = delete;

    /// Any thread. Hands the work over and returns at once; after close() the work is dropped.
    void post(std::function<void()> work);

    /// Background threads only. Returns when the work has been done on the main thread.
    /// Throws Interrupted when the queue is closed before that; the work is then never begun.
    void performAndWait(const std::function<void()> &work);

    /// Main thread. Drops all work not yet begun and releases every waiting caller. For good.
    void close();

private:
    struct State;
    std::shared_ptr<State> m_state;
    QObject m_receiver;
};

} // namespace marrowcut
