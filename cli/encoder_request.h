#pragma once

#include "engine/model/quality_preset.h"
#include "media/encoder_choice.h"
#include "platform/background_thread.h"
#include "platform/main_thread_queue.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace marrowcut::cli
{

/// A choice, or why there is none.
struct EncoderAnswer {
    std::optional<media::EncoderChoice> choice;
    QString problem;
};

/// The choice that a name of media::encoderNames() or "auto" stands for. A hardware encoder that was asked
/// for by its name makes its trial now, which blocks. Throws Interrupted.
EncoderAnswer chooseEncoder(const QString &name, QualityPreset preset, const std::stop_token &stop);

/// The same, settled: "auto" makes its trials now.
EncoderAnswer encoderInUse(const QString &name, const std::stop_token &stop);

/// Asks one of the above beside the main thread, where no signal would be heard meanwhile. Once only; main
/// thread, with an event loop.
class EncoderQuestion
{
public:
    using Find = std::function<EncoderAnswer(const std::stop_token &)>;
    using Take = std::function<void(const EncoderAnswer &)>;

    /// Takes the answer later, on the main thread. False, and no answer, when the system has no thread to
    /// give.
    [[nodiscard]] bool ask(const Find &find, const Take &take);
    /// Ends the running tool; no answer will be taken. Whether its thread has ended within the limit.
    bool interrupt(std::chrono::milliseconds limit);

private:
    MainThreadQueue m_mainThread;
    BackgroundThread m_thread;
};

} // namespace marrowcut::cli
