#pragma once

#include "engine/model/quality_preset.h"
#include "media/system_values.h"

#include <QString>

#include <chrono>
#include <optional>
#include <stop_token>

namespace marrowcut::media
{

/// How long a test encode may take. Opening a graphics card for the first time can take a second or two.
constexpr std::chrono::milliseconds encoderTestLimit{5000};

/// Encodes ten generated frames with the encoder in use, with the argument list of a clip, and counts those
/// that can be decoded again. Nothing when all of them can, else the tool's error output. Takes some tenths
/// of a second; a child that exceeds the time limit is killed. Blocks. Throws Interrupted.
std::optional<QString> encoderTestFailure(const SystemValues &system, QualityPreset preset,
                                          std::chrono::milliseconds limit = encoderTestLimit,
                                          const std::stop_token &stop = {});

/// Which encoder makes the proxies. Not thread-safe.
class EncoderChoice
{
public:
    /// The best one that works here, found by test encodes when it is first needed.
    EncoderChoice() = default;
    /// This one, without a test encode.
    explicit EncoderChoice(VideoEncoder encoder)
        : m_encoder(std::move(encoder))
    {
    }

    /// The first of the system's hardware encoders whose device is present and whose test encode succeeds,
    /// else the software encoder. The first call blocks for the test encodes; later calls return the same.
    /// Throws Interrupted; the next call then starts over.
    const VideoEncoder &resolve(const SystemValues &system, QualityPreset preset,
                                const std::stop_token &stop = {});
    /// Empty until resolved.
    QString name() const { return m_encoder ? m_encoder->name : QString(); }

private:
    std::optional<VideoEncoder> m_encoder;
};

} // namespace marrowcut::media
