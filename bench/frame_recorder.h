#pragma once

#include <QGuiApplication>

#include <algorithm>
#include <ctime>

/// Tells for how long the main thread was kept from drawing: the longest of all events that were delivered
/// to it, drawing among them, since the last reset. In processor time too, which other programs don't change.
class FrameRecorder : public QGuiApplication
{
public:
    using QGuiApplication::QGuiApplication;

    struct Longest {
        double wallMilliseconds = 0;
        double processorMilliseconds = 0;
    };

    void reset() { m_longest = {}; }
    Longest longest() const { return m_longest; }

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (m_depth > 0) // part of an event that is being measured
            return QGuiApplication::notify(receiver, event);
        ++m_depth;
        const double wall = milliseconds(CLOCK_MONOTONIC);
        const double processor = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        const bool result = QGuiApplication::notify(receiver, event);
        --m_depth;
        m_longest.wallMilliseconds =
            std::max(m_longest.wallMilliseconds, milliseconds(CLOCK_MONOTONIC) - wall);
        m_longest.processorMilliseconds =
            std::max(m_longest.processorMilliseconds, milliseconds(CLOCK_THREAD_CPUTIME_ID) - processor);
        return result;
    }

private:
    static double milliseconds(clockid_t clock)
    {
        timespec time = {};
        clock_gettime(clock, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }

    int m_depth = 0;
    Longest m_longest;
};
