#include "ui/shell/command_line.h"
#include "ui/shell/display.h"
#include "ui/shell/marrowcut_app.h"

#include "platform/process_setup.h"
#include "platform/resources.h"
#include "platform/termination_signals.h"
#include "ui/style/desktop_appearance.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QTextStream>

#include <cstdlib>
#include <optional>

using namespace marrowcut;

namespace
{

constexpr int endedBySignal = 130;
/// A wrong colour for a moment is better than no window.
constexpr auto appearanceLimit = std::chrono::milliseconds(250);

void complain(const QString &problem)
{
    QTextStream(stderr) << "marrowcut: " << problem << "\nTry 'marrowcut --help'.\n";
}

void introduceToDesktop()
{
    // No display name: Qt would append it to the title of every sheet.
    QGuiApplication::setApplicationName(QStringLiteral("marrowcut"));
    QGuiApplication::setDesktopFileName(QStringLiteral("marrowcut"));
    QGuiApplication::setWindowIcon(
        QIcon(QStringLiteral(":/qt-project.org/imports/Marrowcut/Style/icons/marrowcut.svg")));
}

/// The window opens all the same, as it would after a drop.
void tellMissing(const QList<QUrl> &items)
{
    for (const QUrl &item : items) {
        if (const QString path = item.toLocalFile(); !QFileInfo::exists(path))
            QTextStream(stderr) << "marrowcut: no such file or folder: " << path << '\n';
    }
}

int runWindow(const QList<QUrl> &items)
{
    MarrowcutApp app;
    TerminationSignals signalSource;
    QObject::connect(&signalSource, &TerminationSignals::received, &app, [&app] { app.quit(endedBySignal); });

    QQmlApplicationEngine engine;
    engine.setInitialProperties({{QStringLiteral("app"), QVariant::fromValue(&app)}});
    engine.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Marrowcut/Shell/MainWindow.qml")));
    if (engine.rootObjects().isEmpty())
        return EXIT_FAILURE;
    tellMissing(items);
    app.queue()->handleDrop(items);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    setUpProcess();
    const CommandLine commandLine = parseCommandLine(std::span(argv, static_cast<std::size_t>(argc)),
                                                     readVersionKeys(resourceFolder()).text());
    QTextStream(stdout) << commandLine.output;
    if (!commandLine.error.isEmpty()) {
        complain(commandLine.error);
        return 2;
    }
    if (!commandLine.output.isEmpty())
        return EXIT_SUCCESS;

    std::optional<NoDisplayGuard> noDisplayGuard(std::in_place);
    const QGuiApplication application(argc, argv);
    noDisplayGuard.reset();
    introduceToDesktop();
    DesktopAppearance *appearance = DesktopAppearance::instance(); // queries the desktop meanwhile
    setUpDrawing();
    appearance->awaitDesktop(appearanceLimit);
    return runWindow(commandLine.items);
}
