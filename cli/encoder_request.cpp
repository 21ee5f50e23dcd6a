#include "encoder_request.h"

#include "media/encoder_choice.h"

namespace marrowcut::cli
{

EncoderAnswer chooseEncoder(const QString &name, QualityPreset preset, const std::stop_token &stop)
{
    if (name == QLatin1String("auto"))
        return {media::EncoderChoice(), {}};
    const media::SystemValues system = media::currentSystemValues();
    for (const media::VideoEncoder &encoder : system.hardwareEncoders) {
        if (encoder.name != name)
            continue;
        const std::optional<QString> failure =
            media::encoderTrialFailure(system.with(encoder), preset, media::encoderTrialLimit, stop);
        if (!failure)
            return {media::EncoderChoice(encoder), {}};
        return {std::nullopt, QStringLiteral("%1 does not work here: %2").arg(name, *failure)};
    }
    return {media::EncoderChoice(system.videoEncoder), {}};
}

EncoderAnswer encoderInUse(const QString &name, const std::stop_token &stop)
{
    const QualityPreset preset = QualityPreset::standard;
    EncoderAnswer answer = chooseEncoder(name, preset, stop);
    if (answer.choice)
        answer.choice->settle(media::currentSystemValues(), preset, stop);
    return answer;
}

bool EncoderQuestion::ask(const Find &find, const Take &take)
{
    return m_thread.start([this, find, take](const std::stop_token &stop) {
        const EncoderAnswer answer = find(stop);
        m_mainThread.post([take, answer] { take(answer); });
    });
}

bool EncoderQuestion::interrupt(std::chrono::milliseconds limit)
{
    m_thread.requestStop();
    m_mainThread.close();
    return m_thread.endedWithin(limit);
}

} // namespace marrowcut::cli
