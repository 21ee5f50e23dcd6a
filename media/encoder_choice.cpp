#include "media/encoder_choice.h"

#include "media/encoder_trial.h"

#include <QFileInfo>

#include <algorithm>

namespace marrowcut::media
{

namespace
{

bool mayBeHere(const VideoEncoder &encoder)
{
    return encoder.signs.isEmpty() ||
           std::any_of(encoder.signs.begin(), encoder.signs.end(),
                       [](const QString &path) { return QFileInfo::exists(path); });
}

} // namespace

const VideoEncoder &EncoderChoice::settle(const SystemValues &system, QualityPreset preset,
                                          const std::stop_token &stop)
{
    if (m_encoder)
        return *m_encoder;
    const auto works = [&](const VideoEncoder &encoder) {
        return mayBeHere(encoder) &&
               !encoderTrialFailure(system.with(encoder), preset, encoderTrialLimit, stop);
    };
    const auto found = std::find_if(system.hardwareEncoders.begin(), system.hardwareEncoders.end(), works);
    m_encoder = found == system.hardwareEncoders.end() ? system.videoEncoder : *found;
    return *m_encoder;
}

} // namespace marrowcut::media
