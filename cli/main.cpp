#include "command_line.h"
#include "encoder_option.h"
#include "headless_run.h"
#include "name_list.h"
#include "program_exit.h"

#include "media/ffmpeg_locator.h"
#include "platform/desktop_notifications.h"
#include "platform/preference_store.h"
#include "platform/process_setup.h"
#include "platform/resources.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>

using namespace marrowcut;
using namespace marrowcut::cli;

namespace
{

/// A notification server that hangs must not hold up a script.
constexpr std::chrono::milliseconds notificationLimit{2000};

int wrongUsage(const QString &problem)
{
    printError(problem);
    QTextStream(stderr) << "Try 'marrowcut-cli --help'.\n";
    return nothingToDo;
}

/// Adds the names that --files-from points to. Returns the exit status when there is nothing to run.
std::optional<int> addListedNames(Request &request, const OriginalInput &input)
{
    if (!request.namesFrom)
        return std::nullopt;
    QString problem;
    const std::optional<QByteArray> list = readNameList(*request.namesFrom, input, problem);
    if (list)
        problem = addNames(*list, request);
    if (!problem.isEmpty())
        return wrongUsage(problem);
    if (!request.namesNothing())
        return std::nullopt;
    // No failure: a script that watches a folder often finds nothing new.
    printError(
        QStringLiteral("No names in %1, so there is nothing to do.").arg(nameListSource(*request.namesFrom)));
    return allDone;
}

bool toolsArePresent()
{
    const QStringList missing = media::FFmpegLocator::missingTools();
    for (const QString &sentence : missing)
        printError(sentence);
    return missing.isEmpty();
}

std::unique_ptr<NotificationCenter> makeNotificationCenter(bool notify)
{
    if (notify)
        return std::make_unique<DesktopNotifications>(applicationId(), notificationLimit);
    return std::make_unique<MemoryNotificationCenter>(false);
}

/// Runs the request to its end, a notification included.
int runRequest(const Request &request)
{
    const SettingsPreferenceStore remembered;
    MemoryPreferenceStore preferences; // a choice made here is not remembered
    QualityPreset::setSaved(preferences, QualityPreset::saved(remembered));
    const std::unique_ptr<NotificationCenter> notifications = makeNotificationCenter(request.notify);

    HeadlessRun run(preferences, *notifications, request);
    if (!run.queueItems())
        return run.itemFailed() ? someFailed : nothingToDo;
    if (!toolsArePresent())
        return toolMissing;

    const TerminationSignals termination; // until here a signal ends the program by itself
    exitOnSignal(termination, [&run] { return run.interrupt(); });
    QObject::connect(&run, &HeadlessRun::ended, &run, [&notifications](int status) {
        notifications->whenIdle([status] { QCoreApplication::exit(status); });
    });
    QTimer::singleShot(0, &run, &HeadlessRun::start);
    return QCoreApplication::exec();
}

int run(int argc, char *argv[])
{
    const OriginalInput input;
    setUpProcess();
    CommandLine commandLine =
        parseCommandLine(std::span(argv, static_cast<std::size_t>(argc)), versionText());
    QTextStream(stdout) << commandLine.output;
    if (!commandLine.error.isEmpty())
        return wrongUsage(commandLine.error);
    if (commandLine.request) {
        if (const std::optional<int> status = addListedNames(*commandLine.request, input))
            return *status;
    } else if (commandLine.encoderToPrint.isEmpty()) {
        return allDone;
    }
    const QCoreApplication application(argc, argv);
    if (commandLine.request)
        return runRequest(*commandLine.request);
    return toolsArePresent() ? printEncoder(commandLine.encoderToPrint) : toolMissing;
}

/// The exit status, or that of a failure when the output could not be written in full: scripts rely on it.
int checkedForLostOutput(int status)
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return status;
    printError(QStringLiteral("The output could not be written in full."));
    return status == allDone ? someFailed : status;
}

} // namespace

int main(int argc, char *argv[])
{
    return checkedForLostOutput(run(argc, argv));
}
