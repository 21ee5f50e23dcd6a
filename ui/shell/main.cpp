#include "ui/shell/command_line.h"
#include "ui/shell/display.h"
#include "ui/shell/marrowcut_app.h"

#include "platform/outside_text.h"
#include "platform/process_setup.h"
#include "platform/resources.h"
#include "ui/style/desktop_appearance.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
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

void reportUsageError(const QString &problem)
{
    QTextStream(stderr) << "marrowcut: " << printable(problem) << "\nTry 'marrowcut --help'.\n";
}

void setUpApplication()
{
    // No display name: Qt would append it to the title of every sheet.
    QGuiApplication::setApplicationName(QStringLiteral("marrowcut"));
    QGuiApplication::setDesktopFileName(applicationId());
    const QString drawing = QStringLiteral(":/qt-project.org/imports/Marrowcut/Style/icons/marrowcut%1.svg");
    QIcon icon(drawing.arg(QString()));
    for (const char *size : {"-16", "-22", "-24"}) // with lines on whole pixels
        icon.addPixmap(QPixmap(drawing.arg(QLatin1String(size))));
    QGuiApplication::setWindowIcon(icon);
}

/// The window opens nevertheless, as it would after a drop.
void reportMissing(const QList<QUrl> &items)
{
    for (const QUrl &item : items) {
        if (const QString path = item.toLocalFile(); !QFileInfo::exists(path))
            QTextStream(stderr) << "marrowcut: no such file or folder: " << printable(path) << '\n';
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
    reportMissing(items);
    app.queue()->handleDrop(items);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    setUpProcess();
    const CommandLine commandLine =
        parseCommandLine(std::span(argv, static_cast<std::size_t>(argc)), versionText());
    QTextStream(stdout) << commandLine.output;
    if (!commandLine.error.isEmpty()) {
        reportUsageError(commandLine.error);
        return 2;
    }
    if (!commandLine.output.isEmpty())
        return EXIT_SUCCESS;

    std::optional<NoDisplayGuard> noDisplayGuard(std::in_place);
    const QGuiApplication application(argc, argv);
    noDisplayGuard.reset();
    setUpApplication();
    DesktopAppearance *appearance = DesktopAppearance::instance(); // queries the desktop meanwhile
    setUpDrawing();
    appearance->awaitDesktop(appearanceLimit);
    return runWindow(commandLine.items);
}
