#include "encoder_report.h"

#include "complaint.h"
#include "encoder_request.h"
#include "exit_status.h"
#include "interruption.h"

#include "platform/termination_signals.h"

#include <QCoreApplication>
#include <QTextStream>

namespace marrowcut::cli
{

namespace
{

int tell(const EncoderAnswer &encoder)
{
    if (!encoder.choice) {
        complain(encoder.problem);
        return toolMissing;
    }
    QTextStream(stdout) << "encoder: " << encoder.choice->name() << '\n';
    return allDone;
}

} // namespace

int tellEncoder(const QString &asked)
{
    EncoderQuestion question;
    const TerminationSignals termination;
    endOnSignal(termination, [&question] { return question.interrupt(interruptLimit); });

    const auto find = [asked](const std::stop_token &stop) { return encoderInUse(asked, stop); };
    const auto take = [](const EncoderAnswer &encoder) { QCoreApplication::exit(tell(encoder)); };
    if (question.ask(find, take))
        return QCoreApplication::exec();
    complain(noThread());
    return someFailed;
}

} // namespace marrowcut::cli
