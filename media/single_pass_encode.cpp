#include "media/encoder_arguments.h"
#include "media/encoder_run.h"
#include "media/encoders.h"
#include "media/error_output.h"
#include "media/failure_messages.h"
#include "media/output_files.h"

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

EncodeResult runSinglePass(const EncodeJob &job, const EncodeContext &context)
{
    const QString &output = job.paths.tmpOutput;
    if (const QString problem = linkProblem(output); !problem.isEmpty())
        return {false, problem}; // ffmpeg would write through it
    StderrTail tail;
    const auto onLine = [&](const QString &line) { publishLine(line, job, context.publish); };
    const EncoderRun run = runEncoder(singlePassArguments(job, context.system, output), output, tail, onLine,
                                      {.stop = context.stop});
    if (run.success && run.frameCount != 0)
        return {publishOutput(output, job.paths.finalOutput, tail), tail.text()};
    if (run.success)
        tail.append(outputWithoutFrames);
    removeIfThere(output);
    return {false, tail.text()};
}

} // namespace marrowcut::media
