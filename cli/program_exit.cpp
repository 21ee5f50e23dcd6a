#include "program_exit.h"

#include "console_text.h"

#include "platform/outside_text.h"
#include "platform/process_setup.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdlib>

namespace marrowcut::cli
{

void printError(const QString &problem, const QString &detail)
{
    QTextStream(stderr) << "marrowcut-cli: " << printable(problem) << '\n' << indentedLines(detail);
}

QString noThreadText()
{
    return QStringLiteral("The system cannot start another thread, so nothing was done.");
}

void exitOnSignal(const TerminationSignals &termination, const std::function<bool()> &interrupt)
{
    QObject::connect(&termination, &TerminationSignals::received, &termination, [interrupt] {
        const bool threadsEnded = interrupt();
        QTextStream(stderr) << "Interrupted.\n";
        if (!threadsEnded)
            std::_Exit(wasInterrupted); // the system holds a thread; its tool dies with the process
        QCoreApplication::exit(wasInterrupted);
    });
}

} // namespace marrowcut::cli
