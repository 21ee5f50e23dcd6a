// Two races that the thread sanitizer must report, whatever is suppressed: between a background thread and
// what the main thread's event loop calls, a timer's slot and a queued call.

#include <QCoreApplication>
#include <QTimer>

#include <atomic>
#include <thread>

namespace
{

int raceWithTimer = 0;
int raceWithQueuedCall = 0;
std::atomic<bool> written = false; // relaxed: it orders nothing

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTimer timer;
    std::jthread worker([&] {
        QMetaObject::invokeMethod(&timer, [] {
            while (!written.load(std::memory_order_relaxed)) {
            }
            ++raceWithQueuedCall;
        });
        ++raceWithQueuedCall; // after the call was queued
        ++raceWithTimer;
        written.store(true, std::memory_order_relaxed);
    });
    QObject::connect(&timer, &QTimer::timeout, &application, [&] {
        if (!written.load(std::memory_order_relaxed))
            return;
        ++raceWithTimer;
        QTimer::singleShot(0, &application, &QCoreApplication::quit);
    });
    timer.start(1);
    return QCoreApplication::exec();
}
