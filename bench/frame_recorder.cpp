#include "frame_recorder.h"

#include "shown_window.h"

#include <QTimer>

#include <algorithm>
#include <ctime>

namespace
{

double milliseconds(clockid_t clock)
{
    timespec time = {};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double median(const QList<FrameRecorder::Longest> &all, double FrameRecorder::Longest::*member)
{
    QList<double> values;
    for (const FrameRecorder::Longest &one : all)
        values.append(one.*member);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

bool FrameRecorder::notify(QObject *receiver, QEvent *event)
{
    if (m_depth > 0) // part of an event that is being measured
        return QGuiApplication::notify(receiver, event);
    ++m_depth;
    const double wall = milliseconds(CLOCK_MONOTONIC);
    const double processor = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    const bool result = QGuiApplication::notify(receiver, event);
    --m_depth;
    m_longest.wallMilliseconds = std::max(m_longest.wallMilliseconds, milliseconds(CLOCK_MONOTONIC) - wall);
    m_longest.processorMilliseconds =
        std::max(m_longest.processorMilliseconds, milliseconds(CLOCK_THREAD_CPUTIME_ID) - processor);
    return result;
}

void Rounds::add(const Operation &operation, const FrameRecorder::Longest &one)
{
    const auto name = QLatin1String(operation.name);
    if (!names.contains(name))
        names.append(name);
    limits[name] = operation.limit;
    longest[name].append(one);
}

void Rounds::report(QSize windowSize, QTextStream &out) const
{
    out << QStringLiteral("in a window of %1x%2 the main thread was busy for, at most, in milliseconds "
                          "(median of %3 rounds):\n")
               .arg(windowSize.width())
               .arg(windowSize.height())
               .arg(longest[names.first()].size());
    for (const QString &name : names) {
        const auto &all = longest[name];
        const double processor = median(all, &FrameRecorder::Longest::processorMilliseconds);
        out << QStringLiteral("%1: %2 (%3 on the clock); limit %4: %5\n")
                   .arg(name, -29)
                   .arg(processor, 5, 'f', 1)
                   .arg(median(all, &FrameRecorder::Longest::wallMilliseconds), 0, 'f', 1)
                   .arg(limits[name])
                   .arg(QLatin1String(processor <= limits[name] ? "held" : "NOT held"));
    }
}

void recordFrames(FrameRecorder &recorder, const QList<Operation> &operations, Rounds &rounds)
{
    for (const Operation &operation : operations) {
        operation.prepare();
        runEventLoop(200);
        recorder.reset();
        QTimer::singleShot(0, operation.perform); // within an event, so that it is recorded
        runEventLoop(operation.milliseconds);
        rounds.add(operation, recorder.longest());
    }
}
