#include "media/encoders.h"

#include "media/encoder_arguments.h"
#include "media/error_output.h"
#include "media/ffmpeg_locator.h"
#include "media/output_files.h"
#include "media/process_runner.h"
#include "media/progress_parsing.h"

#include <algorithm>

namespace marrowcut::media
{

namespace
{

void publishLine(const QString &line, const EncodeJob &job, const PublishProgress &publish)
{
    const double duration = job.meta.duration;
    const auto time = parseTimeSeconds(line);
    if (!time || !(duration > 0))
        return;
    publish(job.jobId, std::min(*time / duration, 1.0), remainingTime(std::max(duration - *time, 0.0), line));
}

} // namespace

EncodeResult runSinglePass(const EncodeJob &job, const QString &finalOutput, const QString &tmpOutput,
                           const EncodeContext &context)
{
    StderrTail tail;
    std::optional<qint64> pictures;
    qint32 status = 1;
    try {
        status = ProcessRunner::runStreaming(FFmpegLocator::ffmpegPath(),
                                             singlePassArguments(job, context.system, tmpOutput),
                                             [&](const QString &line) {
                                                 tail.append(line);
                                                 publishLine(line, job, context.publish);
                                                 if (const auto count = parseFrameCount(line))
                                                     pictures = count;
                                             },
                                             {.stop = context.stop});
    } catch (const ProcessRunner::LaunchError &) {
        status = 1; // a tool that is not there is a failed encode
    }

    const bool isFinished = isFinishedMp4(tmpOutput);
    if (status == 0 && isFinished && pictures != 0)
        return {moveIntoPlace(tmpOutput, finalOutput), tail.text()};
    if (status == 0)
        tail.append(isFinished ? noPictures() : unfinishedFile());
    removeIfThere(tmpOutput);
    return {false, tail.text()};
}

} // namespace marrowcut::media
