// What queueing costs: clips named one by one and clips of one folder, at three sizes, and the memory
// that the largest queue takes. Prints time per name as a ratio to the smallest size.

#include "engine/burn_in_engine.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

using namespace marrowcut;

namespace
{

double residentMebibytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').at(1).toDouble() / 1024;
    }
    return 0;
}

struct Cost {
    double namedMicroseconds = 0; ///< per clip, named one by one
    double folderMicroseconds = 0;
    double mebibytes = 0; ///< resident, with all clips queued
};

double microsecondsPerClip(const QList<QUrl> &items, int count, double *mebibytes)
{
    MemoryPreferenceStore preferences;
    MemoryNotificationCenter notifications(false);
    BurnInEngine engine(preferences, notifications);
    QElapsedTimer timer;
    timer.start();
    engine.enqueue(items);
    const double microseconds = double(timer.nsecsElapsed()) / 1000;
    if (engine.jobs().size() != count)
        qFatal("%lld clips queued", engine.jobs().size());
    *mebibytes = residentMebibytes();
    return microseconds / count;
}

Cost measure(int count)
{
    const QTemporaryDir folder;
    QList<QUrl> names;
    for (int number = 0; number < count; ++number) {
        QFile clip(
            folder.filePath(QStringLiteral("A001C%1_240305.mxf").arg(number, 6, 10, QLatin1Char('0'))));
        if (!clip.open(QIODevice::WriteOnly))
            qFatal("no room for the clips");
        names.append(QUrl::fromLocalFile(clip.fileName()));
    }
    Cost cost;
    double ignored = 0;
    cost.folderMicroseconds = microsecondsPerClip({QUrl::fromLocalFile(folder.path())}, count, &ignored);
    cost.namedMicroseconds = microsecondsPerClip(names, count, &cost.mebibytes);
    return cost;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const Cost smallest = measure(1000);
    for (const int count : {1000, 10000, 100000}) {
        const Cost cost = measure(count);
        out << QStringLiteral(
                   "%1 clips: named %2 us each (x%3), in a folder %4 us each (x%5), %6 MiB resident\n")
                   .arg(count, 6)
                   .arg(cost.namedMicroseconds, 0, 'f', 2)
                   .arg(cost.namedMicroseconds / smallest.namedMicroseconds, 0, 'f', 2)
                   .arg(cost.folderMicroseconds, 0, 'f', 2)
                   .arg(cost.folderMicroseconds / smallest.folderMicroseconds, 0, 'f', 2)
                   .arg(cost.mebibytes, 0, 'f', 0)
            << Qt::flush;
    }
}
