#include "media/probe.h"

#include "media/encoder_arguments.h"
#include "media/failure_messages.h"
#include "media/ffmpeg_locator.h"
#include "media/numbers.h"
#include "media/process_runner.h"
#include "media/timecode_math.h"
#include "platform/outside_text.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

namespace marrowcut::media
{

namespace
{

constexpr qsizetype longestValue = 4096;  // characters
constexpr qsizetype judgedBytes = 4096;   // of a file's beginning
constexpr qsizetype shortestText = 32;    // bytes in front of a NUL; a container's first NUL comes earlier
constexpr qsizetype longestCharacter = 4; // bytes of UTF-8

/// What ffmpeg takes for a list of other files, or may, whatever follows.
constexpr std::array<QByteArrayView, 3> listHeads = {"#EXTM3U", "ffconcat", "<?xml"};

QString textOr(const QString &text, const QString &fallback)
{
    return text.isEmpty() ? fallback : text;
}

int countFilledLines(const QString &output)
{
    const QStringList lines = output.split(QLatin1Char('\n'));
    return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                          [](const QString &line) { return !line.trimmed().isEmpty(); }));
}

/// "2024-03-05T14:22:10.000000Z" becomes "2024-03-05 14:22:10".
QString readableDate(QString date)
{
    static const QRegularExpression fractionAndZone(QStringLiteral("\\.\\d+Z$"));
    return date.replace(QLatin1Char('T'), QLatin1Char(' ')).remove(fractionAndZone);
}

/// Empty output where ffprobe cannot be started.
ProcessRunner::CapturedResult runFFprobe(const QStringList &arguments, const std::stop_token &stop)
{
    try {
        return ProcessRunner::run(FFmpegLocator::ffprobePath(), arguments, {.stop = stop});
    } catch (const ProcessRunner::LaunchError &) {
        return {};
    }
}

/// Why ffprobe must not even be started; empty for what may be a clip. It would wait for a pipe or a device
/// without end, and play a playlist.
QString refusal(const QString &source)
{
    const QFileInfo info(source);
    if (!info.exists() || info.isDir())
        return QString();
    if (!info.isFile())
        return notAFile;
    QFile file(source);
    if (file.open(QIODevice::ReadOnly) && isText(file.read(judgedBytes)))
        return textFile;
    return QString();
}

} // namespace

QString firstLine(const QString &output)
{
    const QStringList lines = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QString line = lines.isEmpty() ? QString() : lines.first().trimmed();
    return line.size() > longestValue ? QString() : line;
}

std::optional<ProbedMetadata> metadataFrom(const ProbeResults &results)
{
    ProbedMetadata meta;
    meta.hasTimecodeTag = !results.timecode.isEmpty();
    meta.tc = textOr(results.timecode, TimecodeMath::zero());
    meta.rate = results.frameRate;
    meta.audioCount = countFilledLines(results.audioStreams);
    meta.duration = decimalNumber(results.duration).value_or(0);
    const QString date = readableDate(textOr(results.modificationDate, results.creationDate));
    meta.hasFileDate = !date.trimmed().isEmpty(); // a tag of "T.0Z" leaves nothing to read
    meta.fileDate = meta.hasFileDate ? date : QStringLiteral("unavailable");
    if (meta.rate.isEmpty())
        return std::nullopt;
    return meta;
}

bool isText(QByteArrayView beginning)
{
    if (std::ranges::any_of(listHeads, [&](QByteArrayView head) { return beginning.startsWith(head); }))
        return true;
    const qsizetype nul = beginning.indexOf('\0');
    QByteArrayView text = nul < 0 ? beginning : beginning.first(nul);
    if (text.isEmpty() || (nul >= 0 && text.size() < shortestText))
        return false;
    // The last character may be cut off where the bytes end.
    for (qsizetype cut = 0; cut < std::min(longestCharacter, text.size()); ++cut) {
        if (decodeUtf8(text.chopped(cut)))
            return true;
    }
    return false;
}

std::optional<ProbedMetadata> probe(const QString &source, const std::stop_token &stop)
{
    if (!refusal(source).isEmpty())
        return std::nullopt;
    const auto ffprobeValue = [&](const QString &entries, const QString &streams = {}) {
        return firstLine(runFFprobe(ffprobeArguments(entries, source, streams), stop).stdout);
    };
    const QStringList audioQuery =
        ffprobeArguments(QStringLiteral("stream=index"), source, QStringLiteral("a"), csvFormat());
    ProbeResults results;
    results.timecode = ffprobeValue(QStringLiteral("format_tags=timecode"));
    results.frameRate = ffprobeValue(QStringLiteral("stream=avg_frame_rate"), QStringLiteral("v:0"));
    results.audioStreams = runFFprobe(audioQuery, stop).stdout;
    results.duration = ffprobeValue(QStringLiteral("format=duration"));
    results.modificationDate = ffprobeValue(QStringLiteral("format_tags=modification_date"));
    if (results.modificationDate.isEmpty())
        results.creationDate = ffprobeValue(QStringLiteral("format_tags=creation_time"));
    return metadataFrom(results);
}

QString probeFailureDetail(const QString &source, const std::stop_token &stop)
{
    if (QString reason = refusal(source); !reason.isEmpty())
        return reason;
    const QStringList arguments = {QStringLiteral("-v"), QStringLiteral("error"),
                                   QStringLiteral("-show_format"), QStringLiteral("-show_streams"), source};
    const QString errors = runFFprobe(arguments, stop).stderr.trimmed();
    return textOr(errors, noVideoStream);
}

} // namespace marrowcut::media
