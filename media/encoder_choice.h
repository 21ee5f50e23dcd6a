#pragma once

#include "engine/model/quality_preset.h"
#include "media/system_values.h"

#include <QString>

#include <chrono>
#include <optional>
#include <stop_token>

namespace marrowcut::media
{

/// How long a trial may take. Opening a graphics card for the first time can take a second or two.
constexpr std::chrono::milliseconds encoderTrialLimit{5000};

/// Encodes ten generated pictures with the encoder in use, by the very argument list of a clip, and counts
/// those that can be read back. Nothing when they all can; else why the encoder won't do, in the tool's
/// words. Some tenths of a second; a tool that hangs is killed at the limit. Blocks. Throws Interrupted.
std::optional<QString> encoderTrialFailure(const SystemValues &system, QualityPreset preset,
                                           std::chrono::milliseconds limit = encoderTrialLimit,
                                           const std::stop_token &stop = {});

/// Which encoder makes the proxies. Owned by whoever owns the run; one thread at a time.
class EncoderChoice
{
public:
    /// The best that works here, found out by trial the first time that it is needed, and kept.
    EncoderChoice() = default;
    /// This one, without a trial.
    explicit EncoderChoice(VideoEncoder encoder)
        : m_encoder(std::move(encoder))
    {
    }

    /// The encoder: the first of the system's hardware encoders that passes its trial, else the one that
    /// always works. Hardware that shows no sign of itself is not tried. The first call blocks for the
    /// trials. Throws Interrupted, and tries again when called again.
    const VideoEncoder &settle(const SystemValues &system, QualityPreset preset,
                               const std::stop_token &stop = {});
    /// Empty until it is settled.
    QString name() const { return m_encoder ? m_encoder->name : QString(); }

private:
    std::optional<VideoEncoder> m_encoder;
};

} // namespace marrowcut::media
