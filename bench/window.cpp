// What the window costs with 10,000 jobs in its list: processor time while one of them reports twice a
// second, how many rows exist as items, for how long each operation keeps the main thread from drawing, and a
// run over clips that are done already while the window shows it.

#include "frame_recorder.h"
#include "shown_window.h"

#include "support/staged_engine.h"

#include <QAbstractItemModel>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QTextStream>
#include <QTimer>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_SheetsPlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_MainPlugin)

using namespace marrowcut;

namespace
{

constexpr int jobCount = 10000;
constexpr int measuredSeconds = 10;
constexpr int roundCount = 5;
constexpr QSize usualSize(480, 460);
constexpr QSize largeSize(900, 900);
// Limits, in milliseconds
constexpr int ongoing = 16; // what goes on all the time: one frame of a display at 60 Hz
constexpr int act = 150;    // one act of the user

double shareOfOneCore(StagedEngine &queue)
{
    QTimer reports;
    double progress = 0;
    QObject::connect(&reports, &QTimer::timeout, &queue, [&] { queue.setProgress(0, progress += 0.001); });
    reports.start(500);
    const double before = processorSeconds();
    runEventLoop(measuredSeconds * 1000);
    return (processorSeconds() - before) / measuredSeconds;
}

qsizetype rowItems(QQuickView &view)
{
    auto *list = view.rootObject()->findChild<QQuickItem *>(QStringLiteral("jobList"));
    return list->property("contentItem").value<QQuickItem *>()->childItems().size();
}

void finish(StagedEngine &queue, int rows, int step)
{
    for (int row = 0; row < rows; row += step)
        queue.setStatus(row, QStringLiteral("done"));
}

double propertyOf(const QQuickItem *list, const char *name)
{
    return list->property(name).toDouble();
}

/// As the scroll bar does it; 0 is the beginning, 1 the end.
void scrollTo(QQuickItem *list, double share)
{
    const double way = propertyOf(list, "contentHeight") - list->height();
    list->setProperty("contentY", propertyOf(list, "originY") + share * way);
}

void scrollBy(QQuickItem *list, double pages)
{
    list->setProperty("contentY", propertyOf(list, "contentY") + pages * list->height());
}

/// What a user or a run does to a window with many rows, in this order.
QList<Operation> operations(StagedEngine &engine, QQuickView &view)
{
    auto *model = engine.viewModel();
    auto *list = view.rootObject()->findChild<QQuickItem *>(QStringLiteral("jobList"));
    return {
        {"a report of progress", ongoing, [&engine] { engine.setProgress(0, 0.5); }},
        {"a clip finishes", ongoing, [&engine] { engine.setStatus(0, QStringLiteral("done")); }},
        {"to the end of the list", ongoing, [list] { scrollTo(list, 1); }},
        {"most of a page up", ongoing, [list] { scrollBy(list, -0.9); }},
        {"half a page up", ongoing, [list] { scrollBy(list, -0.5); }},
        {"most of a page down", ongoing, [list] { scrollBy(list, 0.9); }},
        {"to the middle of the list", ongoing, [list] { scrollTo(list, 0.5); }},
        {"a row is unticked", act,
         [&engine, model] { model->toggleSelected(engine.jobs()[1].id.toString()); }},
        {"a row is removed", act,
         [&engine, model] { model->removeFromQueue(engine.jobs()[2].id.toString()); }},
        {"Select All", act, [model] { model->toggleAllSelected(); }},
        {"Select None", act, [model] { model->toggleAllSelected(); }},
        {"Clear of one", act, [model] { model->clearCompleted(); }},
        {"Clear of 2,000 in a row", act, [model] { model->clearCompleted(); },
         [&engine] { finish(engine, 2000, 1); }},
        {"Clear of every other", act, [model] { model->clearCompleted(); },
         [&engine] { finish(engine, int(engine.jobCount()), 2); }},
        {"a window twice as high", act, [&view] { view.resize(view.width(), 2 * view.height()); }},
    };
}

/// The same where files on disk have their part in it.
QList<Operation> fileOperations(QueueViewModel &model, const QString &folder, const QList<QUrl> &files)
{
    return {
        {"a dropped folder of 10,000", act,
         [&model, folder] { model.handleDrop({QUrl::fromLocalFile(folder)}); }, [] {}, 3000},
        {"ten dropped files", act, [&model, files] { model.handleDrop(files.first(10)); }},
        {"1,000 dropped files", act, [&model, files] { model.handleDrop(files); }},
    };
}

/// Tells the cost at rest too when there is somebody to tell.
void measureStaged(FrameRecorder &recorder, HelpState &helpState, QSize size, Rounds &rounds,
                   QTextStream *out)
{
    StagedEngine queue;
    for (const QUrl &clip : clips(jobCount))
        queue.add(clip.toLocalFile(), QStringLiteral("queued"));
    queue.setStatus(0, QStringLiteral("encoding"));
    DiagnosticsReport report([&queue] { return queue.jobs(); });
    QQuickView view;
    show(view, size, queue.viewModel(), helpState, report);
    if (out)
        *out << QStringLiteral("%1 jobs, two reports a second: %2 % of one core; %3 row items exist\n")
                    .arg(jobCount)
                    .arg(shareOfOneCore(queue) * 100, 0, 'f', 1)
                    .arg(rowItems(view));
    recordFrames(recorder, operations(queue, view), rounds);
}

/// From the drop of a folder until its last row is listed, in microseconds for each clip.
double dropCost(HelpState &helpState, int count)
{
    const QTemporaryDir folder;
    fill(folder, count);
    EngineWindow window(helpState, usualSize);
    QEventLoop loop;
    QObject::connect(window.model.jobs(), &QAbstractItemModel::rowsInserted, &loop, [&] {
        if (window.model.jobs()->rowCount() == count)
            loop.quit();
    });
    const double before = processorSeconds();
    window.model.handleDrop({QUrl::fromLocalFile(folder.path())});
    loop.exec();
    return (processorSeconds() - before) * 1e6 / count;
}

void measureWithFiles(FrameRecorder &recorder, HelpState &helpState, QSize size, Rounds &rounds)
{
    const QTemporaryDir folder;
    fill(folder, jobCount);
    const QTemporaryDir other;
    const QList<QUrl> files = fill(other, 1000);
    EngineWindow window(helpState, size);
    recordFrames(recorder, fileOperations(window.model, folder.path(), files), rounds);
    if (window.engine.jobs().size() != jobCount + files.size())
        qFatal("%lld clips queued", window.engine.jobs().size());
}

/// A run over clips that are done already, shown by the window, in microseconds of processor time for each
/// clip.
double observedRunCost(HelpState &helpState, int count)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkpath(QStringLiteral("marrowcut_proxies"));
    for (const QUrl &clip : fill(folder, count)) {
        const QString proxy = folder.filePath(QStringLiteral("marrowcut_proxies/%1_proxy.mp4")
                                                  .arg(QFileInfo(clip.toLocalFile()).completeBaseName()));
        QFile(proxy).open(QIODevice::WriteOnly);
    }
    EngineWindow window(helpState, usualSize);
    window.engine.enqueue({QUrl::fromLocalFile(folder.path())});
    runEventLoop(500);
    QEventLoop loop;
    const auto quitAtEnd = [&] { // queued: the change is announced before it is made
        if (!window.engine.isRunning())
            loop.quit();
    };
    QObject::connect(&window.engine, &BurnInEngine::willChange, &loop, quitAtEnd, Qt::QueuedConnection);
    const double before = processorSeconds();
    window.model.start();
    loop.exec();
    return (processorSeconds() - before) * 1e6 / count;
}

void reportObservedRuns(HelpState &helpState, QTextStream &out)
{
    constexpr double limit = 1.3;
    const double few = observedRunCost(helpState, 1000);
    const double many = observedRunCost(helpState, 20000);
    out << QStringLiteral("an observed run over finished clips: %1 us of processor time each for 1,000, %2 "
                          "us for 20,000; "
                          "ratio %3; limit %4: %5\n")
               .arg(few, 0, 'f', 0)
               .arg(many, 0, 'f', 0)
               .arg(many / few, 0, 'f', 2)
               .arg(limit)
               .arg(QLatin1String(many / few <= limit ? "held" : "NOT held"));
}

void reportDrops(HelpState &helpState, QTextStream &out)
{
    for (const int count : {10000, 100000})
        out << QStringLiteral(
                   "a folder of %1 clips, from its drop to its last row: %2 us of processor time each\n")
                   .arg(count)
                   .arg(dropCost(helpState, count), 0, 'f', 1);
}

void measureFrames(FrameRecorder &recorder, HelpState &helpState, QSize size, QTextStream &out)
{
    Rounds rounds;
    for (int round = 0; round < roundCount; ++round) {
        measureStaged(recorder, helpState, size, rounds, round == 0 ? &out : nullptr);
        measureWithFiles(recorder, helpState, size, rounds);
    }
    rounds.report(size, out);
}

} // namespace

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    FrameRecorder application(argc, argv);
    HelpState helpState;
    QTextStream out(stdout);
    for (const QSize size : {usualSize, largeSize})
        measureFrames(application, helpState, size, out);
    reportDrops(helpState, out);
    reportObservedRuns(helpState, out);
}
