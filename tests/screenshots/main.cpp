// marrowcut-screenshots DIR [STATE]: pictures of every state of the window, or of one, made by the
// application's own views on a staged engine, in light and dark, in three sizes, at both scales. Needs no
// display.

#include "states.h"

#include "ui/sheets/diagnostics_report.h"
#include "ui/style/desktop_appearance.h"

#include <QDir>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QTextStream>
#include <QTimer>

using namespace marrowcut;

namespace
{

const char *const scaleVariable = "QT_SCALE_FACTOR";

/// Lets the views settle: bindings, layouts, animations.
void settle(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

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
        settle(500);
        for (const QSize size : {QSize(480, 460), QSize(480, 360), QSize(900, 700)})
            takeInSize(state, *window, size);
    }

private:
    void takeInSize(const State &state, QQuickWindow &window, QSize size)
    {
        const int menuBarHeight = window.property("menuBarHeight").toInt(); // above the content
        window.resize(size.width(), size.height() + menuBarHeight);
        for (const auto choice : {DesktopAppearance::Light, DesktopAppearance::Dark}) {
            DesktopAppearance::instance()->setChoice(choice);
            settle(100);
            const QString name = QStringLiteral("%1-%2x%3-%4%5.png")
                                     .arg(state.name)
                                     .arg(size.width())
                                     .arg(size.height())
                                     .arg(choice == DesktopAppearance::Dark ? QStringLiteral("dark")
                                                                             : QStringLiteral("light"))
                                     .arg(window.devicePixelRatio() > 1 ? QStringLiteral("@2x") : QString());
            frontWindow(&window)->grabWindow().save(m_folder.filePath(name));
        }
    }

    QDir m_folder;
};

int takeAll(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    Photographer photographer{QDir(QString::fromLocal8Bit(argv[1]))};
    for (const State &state : allStates()) {
        if (argc == 2 || state.name == QString::fromLocal8Bit(argv[2]))
            photographer.take(state);
    }
    return EXIT_SUCCESS;
}

/// A process has one scale: each is a run of this program of its own.
int takeAtBothScales(const QStringList &arguments)
{
    for (const QString &scale : {QStringLiteral("1"), QStringLiteral("2")}) {
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
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsSet(scaleVariable))
        return takeAll(argc, argv);
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    return takeAtBothScales(arguments);
}
