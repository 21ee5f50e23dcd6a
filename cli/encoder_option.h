#pragma once

#include "engine/model/quality_preset.h"
#include "media/encoder_choice.h"
#include "platform/background_query.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace marrowcut::cli
{

/// What a value of --encoder selects, or the reason why that cannot be used.
struct EncoderResult {
    std::optional<media::EncoderChoice> choice = {};
    QString problem = {}; ///< one line
    QString detail = {};  ///< the tool's messages, may be empty
};

using EncoderQuery = BackgroundQuery<EncoderResult>;

/// The value that leaves the choice to the engine.
QString automaticEncoder();

/// Resolves automaticEncoder() or one of media::encoderNames(). A named hardware encoder does its test encode
/// now, which blocks; "auto" does them when the first clip needs the encoder. Throws Interrupted.
EncoderResult resolveEncoder(const QString &name, QualityPreset preset, const std::stop_token &stop);

/// Prints the encoder that the value selects on this machine, "auto" resolved by test encodes. Runs the event
/// loop; returns the exit status.
int printEncoder(const QString &name);

} // namespace marrowcut::cli
