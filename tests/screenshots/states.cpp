#include "states.h"

#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QQuickItem>

namespace marrowcut
{

namespace
{

QString clip(const QString &name)
{
    return QStringLiteral("/media/card 12/Interview Day 1/") + name;
}

void queueThree(const Stage &stage)
{
    for (const QString &name :
         {QStringLiteral("A001.mxf"), QStringLiteral("A002.mxf"), QStringLiteral("B-roll.mov")})
        stage.queue.add(clip(name));
    stage.queue.setSelected(1, false);
}

void run(const Stage &stage)
{
    stage.queue.add(clip(QStringLiteral("A001.mxf")), QStringLiteral("done"), 1);
    stage.queue.add(clip(QStringLiteral("A002.mxf")), QStringLiteral("skipped"));
    stage.queue.add(clip(QStringLiteral("A003.mxf")), QStringLiteral("failed:encode error"), 0.63);
    stage.queue.add(clip(QStringLiteral("A004.mxf")), QStringLiteral("encoding"), 0.4, 90);
    stage.queue.add(clip(QStringLiteral("A005.mxf")));
    stage.queue.stageRunning(true);
}

void finish(const Stage &stage)
{
    stage.queue.add(clip(QStringLiteral("A001.mxf")), QStringLiteral("done"), 1);
    stage.queue.add(clip(QStringLiteral("A002.mxf")), QStringLiteral("failed:could not read metadata"));
    stage.queue.add(clip(QStringLiteral("A003.mxf")), QStringLiteral("skipped"));
}

void everyForm(const Stage &stage)
{
    const QString name =
        QStringLiteral("A clip with a name that is far too long for a window of this size, take %1.MXF");
    stage.queue.add(clip(name.arg(12)));
    stage.queue.add(clip(name.arg(13)), QStringLiteral("encoding"), 0.1, 4000);
    stage.queue.add(clip(name.arg(14)), QStringLiteral("failed:could not read metadata"));
    stage.queue.add(clip(QStringLiteral("A001.mxf")), QStringLiteral("probing"));
    run(stage);
    stage.queue.stageRunning(false);
}

void queueMany(const Stage &stage)
{
    for (int number = 1; number <= 200; ++number)
        stage.queue.add(clip(QStringLiteral("A%1.mxf").arg(number, 3, 10, QLatin1Char('0'))));
}

void press(const Stage &stage, const QString &button)
{
    QGuiApplication::processEvents(); // the button may have to appear first
    QMetaObject::invokeMethod(stage.window.findChild<QObject *>(button), "clicked");
}

void openAdvanced(const Stage &stage)
{
    queueThree(stage);
    press(stage, QStringLiteral("advancedButton"));
}

void openErrorMenu(const Stage &stage)
{
    finish(stage);
    QGuiApplication::processEvents();
    auto *list = stage.window.findChild<QObject *>(QStringLiteral("jobList"));
    list->setProperty("currentIndex", 1);
    auto *row = list->property("currentItem").value<QQuickItem *>();
    QMetaObject::invokeMethod(row, "requestMenu", Q_ARG(QPointF, QPointF(12, row->height())));
}

/// Returns whether the window would take what is dragged over it.
bool drag(QQuickWindow &window, const QMimeData &files)
{
    const QPoint place(100, 100);
    QDragEnterEvent enter(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &move);
    return move.isAccepted();
}

void dragOver(const Stage &stage)
{
    queueThree(stage);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(clip(QStringLiteral("A009.mxf")))});
    while (!drag(stage.window, files)) // nothing is under the pointer before the window is laid out
        QGuiApplication::processEvents();
}

/// Opens the sheet of a flag of the HelpState.
auto sheet(const char *flag)
{
    return [flag](const Stage &stage) {
        finish(stage);
        stage.window.property("helpState").value<QObject *>()->setProperty(flag, true);
    };
}

} // namespace

QList<State> allStates()
{
    return {
        {QStringLiteral("empty"), [](const Stage &) {}},
        {QStringLiteral("tiny"),
         [](const Stage &stage) { stage.queue.setQualityPreset(QualityPreset::tiny); }},
        {QStringLiteral("tiny-queued"),
         [](const Stage &stage) {
             queueThree(stage);
             stage.queue.setQualityPreset(QualityPreset::tiny);
         }},
        {QStringLiteral("queued"), queueThree},
        {QStringLiteral("advanced"), openAdvanced},
        {QStringLiteral("burn-in-help"),
         [](const Stage &stage) {
             openAdvanced(stage);
             press(stage, QStringLiteral("burnInTitle"));
         }},
        {QStringLiteral("drag"), dragOver},
        {QStringLiteral("running"), run},
        {QStringLiteral("every-form"), everyForm},
        {QStringLiteral("finished"), finish},
        {QStringLiteral("error-menu"), openErrorMenu},
        {QStringLiteral("many"), queueMany},
        {QStringLiteral("quitting"),
         [](const Stage &stage) {
             run(stage);
             stage.window.setProperty("isAskingToQuit", true);
         }},
        {QStringLiteral("help"), sheet("showHelp")},
        {QStringLiteral("about"), sheet("showAbout")},
        {QStringLiteral("report"), sheet("showDiagnostics")},
    };
}

} // namespace marrowcut
