// What the window costs with 10,000 jobs in its list: processor time while one of them reports twice a
// second, how many rows exist as items, and how long "Select None" takes until the list shows it.

#include "ui/main/scripted/scripted_queue.h"
#include "ui/sheets/diagnostics_report.h"
#include "ui/sheets/help_state.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QTextStream>
#include <QTimer>

#include <ctime>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_SheetsPlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_MainPlugin)

using namespace marrowcut;

namespace
{

constexpr int jobCount = 10000;
constexpr int measuredSeconds = 10;

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

void runEventLoop(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

double shareOfOneCore(ScriptedQueue &queue)
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

double selectNoneMilliseconds(ScriptedQueue &queue)
{
    QElapsedTimer timer;
    QEventLoop loop;
    QObject::connect(queue.viewModel(), &QueueViewModel::summaryChanged, &loop, &QEventLoop::quit);
    timer.start();
    queue.viewModel()->toggleAllSelected();
    loop.exec();
    QCoreApplication::processEvents();
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Fusion"));

    ScriptedQueue queue;
    for (int number = 0; number < jobCount; ++number)
        queue.add(QStringLiteral("/footage/A001C%1.mxf").arg(number, 5, 10, QLatin1Char('0')),
                  number == 0 ? QStringLiteral("encoding") : QStringLiteral("queued"));
    HelpState helpState;
    DiagnosticsReport report([&queue] { return queue.jobs(); });

    QQuickView view;
    view.setInitialProperties({{QStringLiteral("queue"), QVariant::fromValue(queue.viewModel())},
                               {QStringLiteral("helpState"), QVariant::fromValue(&helpState)},
                               {QStringLiteral("report"), QVariant::fromValue(&report)}});
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Marrowcut/Main/ContentView.qml")));
    view.resize(480, 460);
    view.show();
    runEventLoop(1000);

    QTextStream out(stdout);
    out << QStringLiteral("%1 jobs, two reports a second: %2 % of one core; %3 row items exist\n")
               .arg(jobCount)
               .arg(shareOfOneCore(queue) * 100, 0, 'f', 1)
               .arg(rowItems(view));
    out << QStringLiteral("Select None on %1 jobs: %2 ms\n")
               .arg(jobCount)
               .arg(selectNoneMilliseconds(queue), 0, 'f', 0);
}
