#include "interruption.h"

#include "exit_status.h"

#include "platform/termination_signals.h"

#include <QCoreApplication>

#include <cstdlib>

namespace marrowcut::cli
{

void endOnSignal(const TerminationSignals &termination, const std::function<bool()> &interrupt)
{
    QObject::connect(&termination, &TerminationSignals::received, &termination, [interrupt] {
        if (!interrupt())
            std::_Exit(wasInterrupted); // the system holds a thread; its tool dies with it
        QCoreApplication::exit(wasInterrupted);
    });
}

} // namespace marrowcut::cli
