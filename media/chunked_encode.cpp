#include "media/encoders.h"

#include "media/encoder_arguments.h"
#include "media/error_output.h"
#include "media/ffmpeg_locator.h"
#include "media/output_files.h"
#include "media/process_runner.h"
#include "media/progress_parsing.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace marrowcut::media
{

namespace
{

/// After an hour of neither pictures nor sound the container's duration is taken as wrong: a damaged one can
/// say tens of thousands of pieces.
constexpr int emptyPiecesAtMost = 40;

/// One chunked run: its folder, the parts that are finished, and what the tools said.
class ChunkedEncode
{
public:
    ChunkedEncode(const EncodeJob &job, const QString &outDir, double chunkSeconds,
                  const EncodeContext &context)
        : m_job(job)
        , m_context(context)
        , m_chunkSeconds(chunkSeconds)
        , m_pieceCount(pieceCount(job.meta.duration, chunkSeconds))
        , m_baseName(QFileInfo(job.source).completeBaseName())
        , m_workFolder(outDir + QStringLiteral("/.chunks_") + m_baseName)
        , m_joinedOutput(outDir + QStringLiteral("/.tmp_") + m_baseName + QStringLiteral("_proxy.mp4"))
    {
    }

    EncodeResult run(const QString &finalOutput)
    {
        const bool success = encodePieces() && join() && moveIntoPlace(m_joinedOutput, finalOutput);
        if (success)
            removeFolder(m_workFolder);
        return {success, m_tail.text()};
    }

private:
    bool encodePieces()
    {
        removeFolder(m_workFolder);
        QDir().mkpath(m_workFolder);
        const double duration = m_job.meta.duration;
        for (Piece piece; piece.start < duration; ++piece.index, piece.start += m_chunkSeconds) {
            piece.length = std::min(m_chunkSeconds, duration - piece.start);
            if (!encode(piece))
                return false;
            if (m_emptyPieces == emptyPiecesAtMost)
                break;
        }
        if (!m_anyPictures)
            m_tail.append(noPictures());
        return m_anyPictures;
    }

    bool encode(const Piece &piece)
    {
        const QString name = QString::asprintf("part_%04lld.mp4", piece.index);
        const QString path = m_workFolder + QLatin1Char('/') + name;
        std::optional<qint64> pictures;
        bool hasSound = false;
        const auto onLine = [&](const QString &line) {
            m_tail.append(line);
            publishLine(line, piece);
            hasSound = hasSound || parseTimeSeconds(line).value_or(0) > 0;
            if (const auto count = parseFrameCount(line))
                pictures = count;
        };
        try {
            const qint32 status = ProcessRunner::runStreaming(
                FFmpegLocator::ffmpegPath(), pieceArguments(m_job, m_context.system, piece, path), onLine,
                {.stop = m_context.stop});
            if (status != 0 || !isFinished(path))
                return false;
        } catch (const ProcessRunner::LaunchError &) {
            return false;
        }
        const bool hasPictures = pictures ? *pictures > 0 : hasVideoStream(path);
        keepPart(name, hasPictures);
        m_emptyPieces = hasPictures || hasSound ? 0 : m_emptyPieces + 1;
        return true;
    }

    /// Sound or a rounded duration can reach past the last picture. The piece beyond it has no
    /// pictures, and joined to pieces that have some it would ruin the whole file's timing.
    void keepPart(const QString &name, bool hasPictures)
    {
        if (hasPictures || !m_anyPictures)
            m_parts.append(name);
        m_anyPictures = m_anyPictures || hasPictures;
    }

    bool hasVideoStream(const QString &path) const
    {
        const QStringList arguments = {
            QStringLiteral("-v"),  QStringLiteral("error"),         QStringLiteral("-select_streams"),
            QStringLiteral("v:0"), QStringLiteral("-show_entries"), QStringLiteral("stream=index"),
            QStringLiteral("-of"), QStringLiteral("csv=p=0"),       path};
        try {
            const auto answer =
                ProcessRunner::run(FFmpegLocator::ffprobePath(), arguments, {.stop = m_context.stop});
            return !answer.stdout.trimmed().isEmpty();
        } catch (const ProcessRunner::LaunchError &) {
            return true; // not known to be without pictures
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
        const QString listName = QStringLiteral("concat.txt");
        const QString listPath = m_workFolder + QLatin1Char('/') + listName;
        writeJoinList(listPath);

        // The demuxer takes # and ? in its list's path for parts of a web address.
        const bool inWorkFolder = listPath.contains(QLatin1Char('#')) || listPath.contains(QLatin1Char('?'));
        ProcessRunner::Options options = {.stop = m_context.stop};
        if (inWorkFolder)
            options.workingDirectory = m_workFolder;
        const QStringList arguments =
            joinArguments(inWorkFolder ? listName : listPath, m_job.meta.tc, m_joinedOutput);
        try {
            const auto result = ProcessRunner::run(FFmpegLocator::ffmpegPath(), arguments, options);
            m_tail.append(result.stderr);
            // A part that cannot be read ends the joining early, with success and this among the last words.
            return result.status == 0 && !result.stderr.contains(QStringLiteral("Impossible to open")) &&
                   isFinished(m_joinedOutput);
        } catch (const ProcessRunner::LaunchError &) {
            return false;
        }
    }

    bool isFinished(const QString &path)
    {
        const bool finished = isFinishedMp4(path);
        if (!finished)
            m_tail.append(unfinishedFile());
        return finished;
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

    const EncodeJob &m_job;
    const EncodeContext &m_context;
    const double m_chunkSeconds;
    const double m_pieceCount;
    const QString m_baseName;
    const QString m_workFolder;
    const QString m_joinedOutput;
    StderrTail m_tail;
    QStringList m_parts;
    bool m_anyPictures = false;
    int m_emptyPieces = 0; ///< in a row, up to the last one
};

} // namespace

double pieceCount(double duration, double chunkSeconds)
{
    return std::max(std::ceil(duration / chunkSeconds), 1.0);
}

EncodeResult runChunked(const EncodeJob &job, const QString &outDir, const QString &finalOutput,
                        double chunkSeconds, const EncodeContext &context)
{
    return ChunkedEncode(job, outDir, chunkSeconds, context).run(finalOutput);
}

} // namespace marrowcut::media
