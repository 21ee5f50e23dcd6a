// marrowcut-screenshots DIR [STATE]: pictures of every state of the window, or of one, taken of the
// application's own views on a staged engine, in light and dark, in three sizes, at the usual scales. Needs
// no display; with QT_QPA_PLATFORM=xcb and QSG_RHI_BACKEND=opengl it shows what OpenGL draws.

#include "states.h"

#include "ui/sheets/diagnostics_report.h"
#include "ui/shell/display.h"
#include "ui/style/desktop_appearance.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QTest>
#include <QTextStream>

using namespace marrowcut;

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

class Photographer
{
public:
    explicit Photographer(const QDir &folder)
        : m_folder(folder)
    {
    }

    void take(const State &state)
    {
        StagedEngine queue;
        DiagnosticsReport report([&queue] { return queue.jobs(); });
        QQmlApplicationEngine engine;
        engine.setInitialProperties({{QStringLiteral("queue"), QVariant::fromValue(queue.viewModel())},
                                     {QStringLiteral("report"), QVariant::fromValue(&report)}});
        engine.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Marrowcut/Screenshots/Stage.qml")));
        auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
        state.enter({*window, queue});
        for (const QSize size : {QSize(480, 460), QSize(480, 360), QSize(900, 700)}) {
            const int menuBarHeight = window->property("menuBarHeight").toInt(); // above the content
            window->resize(size.width(), size.height() + menuBarHeight);
            for (const auto choice : {DesktopAppearance::Light, DesktopAppearance::Dark}) {
                DesktopAppearance::instance()->setChoice(choice);
                finalPicture(window, report)
                    .save(m_folder.filePath(fileName(state, size, window->devicePixelRatio())));
            }
        }
    }

private:
    /// What the front window shows once it changes no more. An animation that never ends is interrupted.
    static QImage finalPicture(QQuickWindow *mainWindow, const DiagnosticsReport &report)
    {
        const auto isComplete = [&] {
            return frontWindow(mainWindow)->isExposed() &&
                   !report.reportText().contains(QStringLiteral(": …"));
        };
        if (!QTest::qWaitFor(isComplete))
            qWarning("incomplete");
        QImage picture;
        QElapsedTimer sinceChange;
        const auto isFinal = [&] {
            const QImage before = std::exchange(picture, frontWindow(mainWindow)->grabWindow());
            if (picture != before)
                sinceChange.start();
            return sinceChange.hasExpired(250); // an animation may be about to begin
        };
        static_cast<void>(QTest::qWaitFor(isFinal, 1500));
        return picture;
    }

    static QString fileName(const State &state, QSize size, qreal scale)
    {
        const bool isDark = DesktopAppearance::instance()->dark();
        return QStringLiteral("%1-%2x%3-%4%5.png")
            .arg(state.name)
            .arg(size.width())
            .arg(size.height())
            .arg(isDark ? QStringLiteral("dark") : QStringLiteral("light"))
            .arg(scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale));
    }

    QDir m_folder;
};

int takeAll(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    setUpDrawing();
    Photographer photographer{QDir(QString::fromLocal8Bit(argv[1]))};
    for (const State &state : allStates()) {
        if (argc == 2 || state.name == QString::fromLocal8Bit(argv[2]))
            photographer.take(state);
    }
    return EXIT_SUCCESS;
}

/// A process has one scale: each is a run of this program of its own.
int takeAtAllScales(const QStringList &arguments)
{
    for (const QString &scale :
         {QStringLiteral("1"), QStringLiteral("1.25"), QStringLiteral("1.5"), QStringLiteral("2")}) {
        qputenv(scaleVariable, scale.toLatin1());
        if (QProcess::execute(QStringLiteral("/proc/self/exe"), arguments) != 0)
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
    if (qEnvironmentVariableIsSet(scaleVariable))
        return takeAll(argc, argv);
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    return takeAtAllScales(arguments);
}
