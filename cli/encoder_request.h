#pragma once

#include "engine/model/quality_preset.h"
#include "media/encoder_choice.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace marrowcut::cli
{

/// The choice that a name of media::encoderNames() or "auto" stands for. A hardware encoder that was asked
/// for by its name makes its trial now, which blocks; when it fails there is no choice, but a problem. Throws
/// Interrupted.
std::optional<media::EncoderChoice> chooseEncoder(const QString &name, QualityPreset preset, QString &problem,
                                                  const std::stop_token &stop = {});

/// What "auto" or the name comes to on this machine. Blocks for the trials.
QString encoderInUse(const QString &name, QString &problem);

} // namespace marrowcut::cli
