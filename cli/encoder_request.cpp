#include "encoder_request.h"

#include "media/encoder_trial.h"

namespace marrowcut::cli
{

std::optional<media::EncoderChoice> chooseEncoder(const QString &name, QualityPreset preset, QString &problem,
                                                  const std::stop_token &stop)
{
    if (name == QLatin1String("auto"))
        return media::EncoderChoice();
    const media::SystemValues system = media::currentSystemValues();
    for (const media::VideoEncoder &encoder : system.hardwareEncoders) {
        if (encoder.name != name)
            continue;
        const std::optional<QString> failure =
            media::encoderTrialFailure(system.with(encoder), preset, media::encoderTrialLimit, stop);
        if (!failure)
            return media::EncoderChoice(encoder);
        problem = QStringLiteral("%1 does not work here: %2").arg(name, *failure);
        return std::nullopt;
    }
    return media::EncoderChoice(system.videoEncoder);
}

QString encoderInUse(const QString &name, QString &problem)
{
    const QualityPreset preset = QualityPreset::standard;
    std::optional<media::EncoderChoice> choice = chooseEncoder(name, preset, problem);
    return choice ? choice->settle(media::currentSystemValues(), preset).name : QString();
}

} // namespace marrowcut::cli
