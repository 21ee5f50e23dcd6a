#include "media/encoders.h"

#include "media/encoder_arguments.h"
#include "media/encoder_run.h"
#include "media/error_output.h"
#include "media/failure_messages.h"
#include "media/ffmpeg_locator.h"
#include "media/output_files.h"

#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace marrowcut::media
{

namespace
{

/// After an hour of neither frames nor sound the container's duration is taken as wrong: a damaged clip can
/// claim tens of thousands of pieces.
constexpr double longestGap = 3600; // seconds

/// One chunked run: the parts that are finished, and the tail of all its runs of ffmpeg.
class ChunkedEncode
{
public:
    ChunkedEncode(const EncodeJob &job, double chunkSeconds, const EncodeContext &context)
        : m_job(job)
        , m_context(context)
        , m_chunkSeconds(chunkSeconds)
        , m_pieceCount(std::ceil(job.meta.duration / chunkSeconds))
    {
    }

    EncodeResult run()
    {
        const bool success =
            encodePieces() && join() && publishOutput(m_job.paths.tmpOutput, m_job.paths.finalOutput, m_tail);
        if (success)
            removeFolder(m_job.paths.workFolder);
        return {success, m_tail.text()};
    }

private:
    bool encodePieces()
    {
        if (const QString problem = replaceFolder(m_job.paths.workFolder); !problem.isEmpty())
            return fail(problem);
        const double duration = m_job.meta.duration;
        for (Piece piece; piece.start < duration; ++piece.index, piece.start += m_chunkSeconds) {
            piece.length = std::min(m_chunkSeconds, duration - piece.start);
            if (!checkSource() || !encode(piece))
                return false;
            if (m_emptyPieces * m_chunkSeconds >= longestGap)
                break;
        }
        if (!m_anyFrames)
            return fail(outputWithoutFrames);
        return checkSource();
    }

    /// A clip that was replaced meanwhile would give a proxy of two clips.
    bool checkSource()
    {
        if (!QFileInfo::exists(m_job.source) || FileStamp::of(m_job.source) == m_job.sourceStamp)
            return true;
        return fail(sourceChanged);
    }

    bool encode(const Piece &piece)
    {
        const QString name = QString::asprintf("part_%04lld.mp4", piece.index);
        const QString path = m_job.paths.workFolder + QLatin1Char('/') + name;
        const EncoderRun run =
            runEncoder(pieceArguments(m_job, m_context.system, piece, path), path, m_tail,
                       [&](const QString &line) { publishLine(line, piece); }, {.stop = m_context.stop});
        if (!run.success)
            return false;
        const bool hasFrames = run.frameCount ? *run.frameCount > 0 : hasVideoStream(path);
        keepPart(name, hasFrames);
        m_emptyPieces = hasFrames || run.hasSound ? 0 : m_emptyPieces + 1;
        return true;
    }

    /// Sound or a rounded duration can reach past the last frame. The piece beyond it has no frames, and
    /// joined to pieces that have some it would ruin the whole file's timing.
    void keepPart(const QString &name, bool hasFrames)
    {
        if (hasFrames || !m_anyFrames)
            m_parts.append(name);
        m_anyFrames = m_anyFrames || hasFrames;
    }

    bool hasVideoStream(const QString &path) const
    {
        const QStringList arguments =
            ffprobeArguments(QStringLiteral("stream=index"), path, QStringLiteral("v:0"), csvFormat());
        try {
            const auto result =
                ProcessRunner::run(FFmpegLocator::ffprobePath(), arguments, {.stop = m_context.stop});
            return !result.stdout.trimmed().isEmpty();
        } catch (const ProcessRunner::LaunchError &) {
            return true; // not known to be without frames
        }
    }

    void publishLine(const QString &line, const Piece &piece) const
    {
        const auto time = parseTimeSeconds(line);
        if (!time || !(piece.length > 0))
            return;
        const auto index = static_cast<double>(piece.index);
        const double progress = (std::min(*time / piece.length, 1.0) + index) / m_pieceCount;
        const double wholePiecesLeft = m_pieceCount - 1 - index;
        const double secondsLeft = wholePiecesLeft * m_chunkSeconds + std::max(piece.length - *time, 0.0);
        m_context.publish(m_job.jobId, progress, remainingTime(secondsLeft, line));
    }

    bool join()
    {
        const QString &workFolder = m_job.paths.workFolder;
        const QString &output = m_job.paths.tmpOutput;
        if (const QString problem = linkProblem(output); !problem.isEmpty())
            return fail(problem);
        const QString listName = QStringLiteral("concat.txt");
        const QString listPath = workFolder + QLatin1Char('/') + listName;
        writeJoinList(listPath);
        // The demuxer takes # and ? in its list's path for parts of a web address.
        const bool inWorkFolder = listPath.contains(QLatin1Char('#')) || listPath.contains(QLatin1Char('?'));
        ProcessRunner::Options options = {.stop = m_context.stop};
        if (inWorkFolder)
            options.workingDirectory = workFolder;
        const QStringList arguments =
            joinArguments(inWorkFolder ? listName : listPath, m_job.meta.tc, output);
        return runJoin(arguments, output, m_tail, options);
    }

    void writeJoinList(const QString &path) const
    {
        QSaveFile list(path);
        if (!list.open(QIODevice::WriteOnly))
            return;
        for (const QString &name : m_parts)
            list.write(QStringLiteral("file '%1'\n").arg(name).toUtf8());
        list.commit();
    }

    bool fail(const QString &reason)
    {
        m_tail.append(reason);
        return false;
    }

    const EncodeJob &m_job;
    const EncodeContext &m_context;
    const double m_chunkSeconds;
    const double m_pieceCount; ///< an absurd duration would overflow an integer
    StderrTail m_tail;
    QStringList m_parts;
    bool m_anyFrames = false;
    int m_emptyPieces = 0; ///< in a row, up to the last one
};

void publishSinglePassLine(const QString &line, const EncodeJob &job, const PublishProgress &publish)
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
    const auto onLine = [&](const QString &line) { publishSinglePassLine(line, job, context.publish); };
    const EncoderRun run = runEncoder(singlePassArguments(job, context.system, output), output, tail, onLine,
                                      {.stop = context.stop});
    if (run.success && run.frameCount != 0)
        return {publishOutput(output, job.paths.finalOutput, tail), tail.text()};
    if (run.success)
        tail.append(outputWithoutFrames);
    removeIfThere(output);
    return {false, tail.text()};
}

EncodeResult runChunked(const EncodeJob &job, double chunkSeconds, const EncodeContext &context)
{
    return ChunkedEncode(job, chunkSeconds, context).run();
}

} // namespace marrowcut::media
