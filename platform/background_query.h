#pragma once

#include "platform/background_thread.h"

#include <QFutureWatcher>
#include <QPromise>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace marrowcut
{

/// Runs one query at a time on a background thread and delivers its result on the main thread, from the event
/// loop. Main thread only. Ending it, by a later query or by destruction, never blocks for longer than
/// quitLimit, even when the system holds the thread: such a thread is abandoned.
template <typename Result>
class BackgroundQuery
{
public:
    /// Runs on the background thread. It must capture values only, since the thread may be abandoned, and
    /// return soon after a stop request. May throw Interrupted.
    using Work = std::function<Result(const std::stop_token &stop)>;
    /// Receives the result; nothing when the time limit was exceeded or no thread could be started.
    using Deliver = std::function<void(const std::optional<Result> &result)>;

    BackgroundQuery()
    {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_watcher, [this] {
            m_thread.requestStop();
            deliver(std::nullopt);
        });
        QObject::connect(&m_watcher, &QFutureWatcherBase::finished, &m_watcher, [this] {
            const QFuture<Result> future = m_watcher.future();
            deliver(future.resultCount() > 0 ? std::optional(future.result()) : std::nullopt);
        });
    }
    ~BackgroundQuery()
    {
        if (!cancel())
            m_thread.abandon();
    }
    BackgroundQuery(const BackgroundQuery &) = delete;
    BackgroundQuery &operator=(const BackgroundQuery &) = delete;

    /// Replaces an earlier query, which then delivers nothing. A limit of 0 means no limit.
    void start(Work work, Deliver deliver, std::chrono::milliseconds limit = {})
    {
        m_thread.abandon();
        m_deliver = std::move(deliver);
        const auto promise = std::make_shared<QPromise<Result>>();
        m_watcher.setFuture(promise->future());
        promise->start();
        // Without a result the promise's end finishes the future, also when no thread could be started.
        static_cast<void>(m_thread.start([promise, work = std::move(work)](const std::stop_token &stop) {
            promise->addResult(work(stop));
            promise->finish();
        }));
        if (limit.count() > 0)
            m_timer.start(limit);
        else
            m_timer.stop();
    }

    /// Requests a stop; nothing is delivered any more. Returns whether the thread ended within the limit.
    bool cancel(std::chrono::milliseconds limit = quitLimit)
    {
        m_timer.stop();
        m_deliver = nullptr;
        m_thread.requestStop();
        return m_thread.endedWithin(limit);
    }

private:
    void deliver(const std::optional<Result> &result)
    {
        m_timer.stop();
        if (const Deliver receiver = std::exchange(m_deliver, nullptr))
            receiver(result); // may start the next query
    }

    Deliver m_deliver;
    QTimer m_timer;
    QFutureWatcher<Result> m_watcher;
    BackgroundThread m_thread;
};

} // namespace marrowcut
