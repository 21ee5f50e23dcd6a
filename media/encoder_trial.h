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

} // namespace marrowcut::media
