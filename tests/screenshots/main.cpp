// marrowcut-screenshots DIR [STATE]: pictures of every state of the window, or of one, taken of the
// application's own views on a staged engine, in light and dark, in three sizes, at the usual scales. Needs
// no display; with QT_QPA_PLATFORM=xcb and QSG_RHI_BACKEND=opengl it shows what OpenGL draws.

#include "support/staged_engine.h"
#include "ui/sheets/diagnostics_report.h"
#include "ui/shell/display.h"
#include "ui/style/desktop_appearance.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTest>
#include <QTextStream>

using namespace marrowcut;
using namespace Qt::StringLiterals;

namespace
{

const char *const scaleVariable = "QT_SCALE_FACTOR";

/// The sheet where one is open, else the main window.
QQuickWindow *frontWindow(QQuickWindow *mainWindow)
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        auto *sheet = qobject_cast<QQuickWindow *>(window);
        if (sheet && sheet->isVisible() && sheet != mainWindow)
            return sheet;
    }
    return mainWindow;
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

/// Takes the steps of Stage.qml to a state.
void enter(const QString &state, QQuickWindow &window)
{
    const auto steps = window.property("steps").value<QJSValue>().property(state);
    for (quint32 step = 0; step < steps.property(u"length"_s).toUInt(); ++step) {
        while (steps.property(step).call().isError()) // what it needs has to appear first
            QGuiApplication::processEvents();
    }
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(u"/media/card 12/A009.mxf"_s)});
    while (state == u"drag"_s && !drag(window, files)) // nothing is there before the layout
        QGuiApplication::processEvents();
}

/// The window on a queue of its own.
struct Stage {
    StagedEngine queue;
    DiagnosticsReport report{[this] { return queue.jobs(); }};
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;

    Stage()
    {
        engine.setInitialProperties(
            {{u"queue"_s, QVariant::fromValue(&queue)}, {u"report"_s, QVariant::fromValue(&report)}});
        engine.load(QUrl(u"qrc:/qt-project.org/imports/Marrowcut/Screenshots/Stage.qml"_s));
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    }
};

/// What the front window shows once it changes no more. An animation that never ends is interrupted.
QImage finalPicture(const Stage &stage)
{
    const auto isComplete = [&] {
        return frontWindow(stage.window)->isExposed() && !stage.report.reportText().contains(u": …"_s);
    };
    if (!QTest::qWaitFor(isComplete))
        qWarning("incomplete");
    QImage picture;
    QElapsedTimer sinceChange;
    const auto isFinal = [&] {
        const QImage before = std::exchange(picture, frontWindow(stage.window)->grabWindow());
        if (picture != before)
            sinceChange.start();
        return sinceChange.hasExpired(250); // an animation may be about to begin
    };
    static_cast<void>(QTest::qWaitFor(isFinal, 1500));
    return picture;
}

QString fileName(const QString &state, QSize size, qreal scale)
{
    const bool isDark = DesktopAppearance::instance()->dark();
    return u"%1-%2x%3-%4%5.png"_s.arg(state)
        .arg(size.width())
        .arg(size.height())
        .arg(isDark ? u"dark"_s : u"light"_s)
        .arg(scale == 1 ? QString() : u"@%1x"_s.arg(scale));
}

void take(const QString &state, const QDir &folder)
{
    Stage stage;
    enter(state, *stage.window);
    for (const QSize size : {QSize(480, 460), QSize(480, 360), QSize(900, 700)}) {
        const int menuBarHeight = stage.window->property("menuBarHeight").toInt(); // above the content
        stage.window->resize(size.width(), size.height() + menuBarHeight);
        for (const auto choice : {DesktopAppearance::Light, DesktopAppearance::Dark}) {
            DesktopAppearance::instance()->setChoice(choice);
            finalPicture(stage).save(
                folder.filePath(fileName(state, size, stage.window->devicePixelRatio())));
        }
    }
}

int takeAll(const QStringList &arguments)
{
    setUpDrawing();
    const QStringList states =
        arguments.size() > 1 ? arguments.mid(1) : Stage().window->property("states").toStringList();
    for (const QString &state : states)
        take(state, QDir(arguments.first()));
    return EXIT_SUCCESS;
}

/// A process has one scale: each is a run of this program of its own.
int takeAtAllScales(const QStringList &arguments)
{
    for (const QString &scale : {u"1"_s, u"1.25"_s, u"1.5"_s, u"2"_s}) {
        qputenv(scaleVariable, scale.toLatin1());
        if (QProcess::execute(u"/proc/self/exe"_s, arguments) != 0)
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 2 || argc > 3 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        QTextStream(stderr) << "Usage: marrowcut-screenshots DIR [STATE]\n";
        return 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    if (!qEnvironmentVariableIsSet(scaleVariable))
        return takeAtAllScales(arguments);
    const QGuiApplication application(argc, argv);
    return takeAll(arguments);
}
