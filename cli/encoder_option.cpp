#include "encoder_option.h"

#include "program_exit.h"

#include "platform/process_setup.h"

#include <QCoreApplication>
#include <QTextStream>

namespace marrowcut::cli
{

namespace
{

int printResult(const std::optional<EncoderResult> &result)
{
    if (!result) {
        printError(noThreadText());
        return someFailed;
    }
    if (!result->choice) {
        printError(result->problem, result->detail);
        return toolMissing;
    }
    QTextStream(stdout) << "encoder: " << result->choice->name() << '\n';
    return allDone;
}

} // namespace

QString automaticEncoder()
{
    return QStringLiteral("auto");
}

EncoderResult resolveEncoder(const QString &name, QualityPreset preset, const std::stop_token &stop)
{
    if (name == automaticEncoder())
        return {.choice = media::EncoderChoice()};
    const media::SystemValues system = media::currentSystemValues();
    for (const media::VideoEncoder &encoder : system.hardwareEncoders) {
        if (encoder.name != name)
            continue;
        const std::optional<QString> failure =
            media::encoderTestFailure(system.with(encoder), preset, media::encoderTestLimit, stop);
        if (!failure)
            return {.choice = media::EncoderChoice(encoder)};
        return {.problem = QStringLiteral("%1 does not work here:").arg(name), .detail = *failure};
    }
    return {.choice = media::EncoderChoice(system.videoEncoder)};
}

int printEncoder(const QString &name)
{
    EncoderQuery query;
    const TerminationSignals termination;
    exitOnSignal(termination, [&query] { return query.cancel(); });

    const auto resolve = [name](const std::stop_token &stop) {
        const QualityPreset preset = QualityPreset::standard;
        EncoderResult result = resolveEncoder(name, preset, stop);
        if (result.choice)
            result.choice->resolve(media::currentSystemValues(), preset, stop);
        return result;
    };
    query.start(resolve, [](const auto &result) { QCoreApplication::exit(printResult(result)); });
    return QCoreApplication::exec();
}

} // namespace marrowcut::cli
