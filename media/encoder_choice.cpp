#include "media/encoder_choice.h"

#include "media/encoder_arguments.h"
#include "media/ffmpeg_locator.h"
#include "media/output_files.h"
#include "media/process_runner.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>

namespace marrowcut::media
{

namespace
{

constexpr int pictureCount = 10;

EncodeJob trialJob(QualityPreset preset)
{
    return {
        .source = QStringLiteral("testsrc2=size=1920x1080:rate=25:duration=0.4"),
        .meta = {.tc = QStringLiteral("00:00:00:00"),
                 .rate = QStringLiteral("25/1"),
                 .audioCount = 0,
                 .duration = 0.4,
                 .fileDate = QStringLiteral("unavailable")},
        .jobId = {},
        .preset = preset,
    };
}

QStringList trialArguments(SystemValues system, QualityPreset preset, const QString &output)
{
    system.hardwareDecoding += {QStringLiteral("-f"), QStringLiteral("lavfi")}; // the source is a generator
    return singlePassArguments(trialJob(preset), system, output);
}

/// What ffprobe makes of the file: the number of pictures that it could decode.
QStringList countArguments(const QString &output)
{
    return {QStringLiteral("-v"),
            QStringLiteral("error"),
            QStringLiteral("-select_streams"),
            QStringLiteral("v:0"),
            QStringLiteral("-count_frames"),
            QStringLiteral("-show_entries"),
            QStringLiteral("stream=nb_read_frames"),
            QStringLiteral("-of"),
            QStringLiteral("csv=p=0"),
            output};
}

QString failureOf(const ProcessRunner::CapturedResult &result)
{
    if (result.status == 128 + SIGKILL)
        return QStringLiteral("It did not end in time.");
    const QString words = result.stderr.trimmed();
    return words.isEmpty() ? QStringLiteral("It ended with status %1.").arg(result.status) : words;
}

std::optional<QString> failureIn(const QString &folder, const SystemValues &system, QualityPreset preset,
                                 const ProcessRunner::Options &options)
{
    const QString output = folder + QStringLiteral("/trial.mp4");
    const auto encoded =
        ProcessRunner::run(FFmpegLocator::ffmpegPath(), trialArguments(system, preset, output), options);
    if (encoded.status != 0)
        return failureOf(encoded);
    if (!isFinishedMp4(output))
        return unfinishedFile();
    const auto counted = ProcessRunner::run(FFmpegLocator::ffprobePath(), countArguments(output), options);
    if (counted.stdout.trimmed() != QString::number(pictureCount))
        return QStringLiteral("Its file does not hold the pictures that it was given.");
    return std::nullopt;
}

bool mayBeHere(const VideoEncoder &encoder)
{
    return encoder.signs.isEmpty() ||
           std::any_of(encoder.signs.begin(), encoder.signs.end(),
                       [](const QString &path) { return QFileInfo::exists(path); });
}

} // namespace

std::optional<QString> encoderTrialFailure(const SystemValues &system, QualityPreset preset,
                                           std::chrono::milliseconds limit, const std::stop_token &stop)
{
    const QTemporaryDir folder; // no clip's folder: it goes whatever happens
    if (!folder.isValid())
        return QStringLiteral("No temporary folder can be made, in $TMPDIR or /tmp: %1")
            .arg(folder.errorString());
    try {
        return failureIn(folder.path(), system, preset, {.stop = stop, .timeLimit = limit});
    } catch (const ProcessRunner::LaunchError &error) {
        return QString::fromLocal8Bit(error.what());
    }
}

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
