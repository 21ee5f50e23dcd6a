// What a long queue costs: queued, selected, run through (every clip has its proxy already) and cleared.
// Where the ratio to the smallest queue stays near 1, the cost grows no faster than the queue.

#include "engine/burn_in_engine.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <functional>
#include <malloc.h>

using namespace marrowcut;

namespace
{

double bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
}

/// What each thing costs, in microseconds per clip.
struct Costs {
    QList<std::pair<QString, double>> microseconds;
    double bytes = 0; ///< of memory
};

/// Runs the engine until every clip is found done already: all of the pipeline but the tools.
void runToEnd(BurnInEngine &engine)
{
    QEventLoop loop;
    QObject::connect(
        &engine, &BurnInEngine::willChange, &loop,
        [&] {
            if (!engine.isRunning())
                loop.quit();
        },
        Qt::QueuedConnection);
    engine.start();
    loop.exec();
}

class Measurement
{
public:
    explicit Measurement(int count)
        : m_count(count)
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("marrowcut_proxies"));
        for (int number = 0; number < count; ++number) {
            const QString base = QStringLiteral("A001C%1_240305").arg(number, 6, 10, QLatin1Char('0'));
            m_clips.append(makeFile(base + QStringLiteral(".mxf")));
            makeFile(QStringLiteral("marrowcut_proxies/%1_proxy.mp4").arg(base));
        }
    }

    Costs costs()
    {
        {
            BurnInEngine engine(m_preferences, m_notifications);
            take(QStringLiteral("queued from a folder"),
                 [&] { engine.enqueue({QUrl::fromLocalFile(m_folder.path())}); });
        }
        const double before = bytesInUse();
        BurnInEngine engine(m_preferences, m_notifications);
        take(QStringLiteral("queued by name"), [&] { engine.enqueue(m_clips); });
        if (engine.jobs().size() != m_count)
            qFatal("%lld clips queued", engine.jobs().size());
        m_costs.bytes = (bytesInUse() - before) / m_count;
        take(QStringLiteral("unselected"), [&] { engine.setAllSelected(false); });
        take(QStringLiteral("selected"), [&] { engine.setAllSelected(true); });
        take(QStringLiteral("found done by a run"), [&] { runToEnd(engine); });
        take(QStringLiteral("cleared"), [&] { engine.clearCompleted(); });
        if (!engine.jobs().isEmpty())
            qFatal("%lld clips left", engine.jobs().size());
        return m_costs;
    }

private:
    QUrl makeFile(const QString &name) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("no room for the clips");
        return QUrl::fromLocalFile(file.fileName());
    }

    void take(const QString &what, const std::function<void()> &work)
    {
        QElapsedTimer timer;
        timer.start();
        work();
        m_costs.microseconds.append({what, double(timer.nsecsElapsed()) / 1000 / m_count});
    }

    const int m_count;
    const QTemporaryDir m_folder;
    QList<QUrl> m_clips;
    MemoryPreferenceStore m_preferences;
    MemoryNotificationCenter m_notifications{false};
    Costs m_costs;
};

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const Costs smallest = Measurement(1000).costs();
    for (const int count : {10000, 100000}) {
        const Costs costs = Measurement(count).costs();
        out << QStringLiteral("%1 clips, %2 bytes each; time per clip, and against that of 1,000 clips:\n")
                   .arg(count)
                   .arg(costs.bytes, 0, 'f', 0);
        for (qsizetype index = 0; index < costs.microseconds.size(); ++index) {
            const auto &[what, time] = costs.microseconds[index];
            out << QStringLiteral("  %1 %2 us  x %3\n")
                       .arg(what, -22)
                       .arg(time, 7, 'f', 2)
                       .arg(time / smallest.microseconds[index].second, 0, 'f', 2)
                << Qt::flush;
        }
    }
}
