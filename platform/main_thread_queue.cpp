#include "platform/main_thread_queue.h"

#include "platform/background_thread.h"

#include <condition_variable>
#include <mutex>

namespace marrowcut
{

struct MainThreadQueue::State {
    std::mutex mutex;
    std::condition_variable changed;
    bool closed = false;

    bool isClosed()
    {
        const std::lock_guard lock(mutex);
        return closed;
    }
};

MainThreadQueue::MainThreadQueue()
    : m_state(std::make_shared<State>())
{
}

MainThreadQueue::~MainThreadQueue()
{
    close();
}

void MainThreadQueue::post(std::function<void()> work)
{
    QMetaObject::invokeMethod(
        &m_receiver,
        [state = m_state, work = std::move(work)] {
            if (!state->isClosed())
                work();
        },
        Qt::QueuedConnection);
}

void MainThreadQueue::performAndWait(const std::function<void()> &work)
{
    // The work refers to the caller's stack. That is sound: close() runs on the thread that would
    // do the work, so the caller is released only before the work begins or after it has ended.
    const auto done = std::make_shared<bool>(false);
    post([state = m_state, &work, done] {
        work();
        const std::lock_guard lock(state->mutex);
        *done = true;
        state->changed.notify_all();
    });

    std::unique_lock lock(m_state->mutex);
    m_state->changed.wait(lock, [&] { return *done || m_state->closed; });
    if (!*done)
        throw Interrupted();
}

void MainThreadQueue::close()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->closed = true;
    m_state->changed.notify_all();
}

} // namespace marrowcut
