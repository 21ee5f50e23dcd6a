#pragma once

#include <QGuiApplication>
#include <QHash>
#include <QList>
#include <QSize>
#include <QStringList>
#include <QTextStream>

#include <functional>

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

    bool notify(QObject *receiver, QEvent *event) override;

private:
    int m_depth = 0;
    Longest m_longest;
};

/// Something that keeps the main thread busy. Times in milliseconds.
struct Operation {
    const char *name;
    int limit; ///< for the main thread
    std::function<void()> perform;
    std::function<void()> prepare = [] {}; ///< is not recorded
    int milliseconds = 500;                ///< in which it is done
};

/// How long each operation kept the main thread, once for each round; in the order of the first.
struct Rounds {
    QStringList names;
    QHash<QString, int> limits;
    QHash<QString, QList<FrameRecorder::Longest>> longest;

    void add(const Operation &operation, const FrameRecorder::Longest &one);
    void report(QSize windowSize, QTextStream &out) const;
};

void recordFrames(FrameRecorder &recorder, const QList<Operation> &operations, Rounds &rounds);
