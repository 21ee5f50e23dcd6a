#include "media/encoder_choice.h"

#include "media/encoder_arguments.h"
#include "media/failure_messages.h"
#include "media/ffmpeg_locator.h"
#include "media/output_files.h"
#include "media/process_runner.h"
#include "media/timecode_math.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>

namespace marrowcut::media
{

namespace
{

constexpr int frameCount = 10;

EncodeJob testJob(QualityPreset preset)
{
    return {
        .source = QStringLiteral("testsrc2=size=1920x1080:rate=25:duration=0.4"),
        .sourceStamp = {},
        .paths = {},
        .meta = {.tc = TimecodeMath::zero(),
                 .rate = QStringLiteral("25/1"),
                 .audioCount = 0,
                 .duration = 0.4,
                 .fileDate = QStringLiteral("unavailable")},
        .jobId = {},
        .preset = preset,
    };
}

QStringList testArguments(SystemValues system, QualityPreset preset, const QString &output)
{
    system.hardwareDecoding += {QStringLiteral("-f"), QStringLiteral("lavfi")}; // the source is a generator
    return singlePassArguments(testJob(preset), system, output);
}

QString failureOf(const ProcessRunner::CapturedResult &result)
{
    if (result.status == -SIGKILL)
        return QStringLiteral("The test encode exceeded the time limit.");
    const QString errors = result.stderr.trimmed();
    return errors.isEmpty() ? QStringLiteral("It ended with status %1.").arg(result.status) : errors;
}

std::optional<QString> failureIn(const QString &folder, const SystemValues &system, QualityPreset preset,
                                 const ProcessRunner::Options &options)
{
    const QString output = folder + QStringLiteral("/test.mp4");
    const auto encoded =
        ProcessRunner::run(FFmpegLocator::ffmpegPath(), testArguments(system, preset, output), options);
    if (encoded.status != 0)
        return failureOf(encoded);
    if (!isFinishedMp4(output))
        return incompleteOutput;
    const QStringList countArguments =
        QStringList{QStringLiteral("-count_frames")} +
        ffprobeArguments(QStringLiteral("stream=nb_read_frames"), output, QStringLiteral("v:0"), csvFormat());
    const auto counted = ProcessRunner::run(FFmpegLocator::ffprobePath(), countArguments, options);
    if (counted.stdout.trimmed() != QString::number(frameCount))
        return QStringLiteral("The test file lacks frames.");
    return std::nullopt;
}

bool mayBePresent(const VideoEncoder &encoder)
{
    return encoder.devicePaths.isEmpty() ||
           std::any_of(encoder.devicePaths.begin(), encoder.devicePaths.end(),
                       [](const QString &path) { return QFileInfo::exists(path); });
}

} // namespace

std::optional<QString> encoderTestFailure(const SystemValues &system, QualityPreset preset,
                                          std::chrono::milliseconds limit, const std::stop_token &stop)
{
    const QTemporaryDir folder; // removed in any case
    if (!folder.isValid())
        return QStringLiteral("No temporary folder can be made in $TMPDIR or /tmp: %1")
            .arg(folder.errorString());
    try {
        return failureIn(folder.path(), system, preset, {.stop = stop, .timeLimit = limit});
    } catch (const ProcessRunner::LaunchError &error) {
        return QString::fromLocal8Bit(error.what());
    }
}

const VideoEncoder &EncoderChoice::resolve(const SystemValues &system, QualityPreset preset,
                                           const std::stop_token &stop)
{
    if (m_encoder)
        return *m_encoder;
    const auto works = [&](const VideoEncoder &encoder) {
        return mayBePresent(encoder) &&
               !encoderTestFailure(system.with(encoder), preset, encoderTestLimit, stop);
    };
    const auto found = std::find_if(system.hardwareEncoders.begin(), system.hardwareEncoders.end(), works);
    m_encoder = found == system.hardwareEncoders.end() ? system.videoEncoder : *found;
    return *m_encoder;
}

} // namespace marrowcut::media
