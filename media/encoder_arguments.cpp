#include "media/encoder_arguments.h"

#include "media/burn_in_filter.h"
#include "media/numbers.h"
#include "media/proxy_format.h"
#include "media/timecode_math.h"

#include <QFileInfo>

namespace marrowcut::media
{

namespace
{

QStringList openingOptions(const SystemValues &system)
{
    return QStringList{QStringLiteral("-y"), QStringLiteral("-loglevel"), QStringLiteral("warning"),
                       QStringLiteral("-stats")} +
           system.hardwareDecoding;
}

FilterInputs filterInputs(const EncodeJob &job, const QString &srcTC, const QString &elapsedTC)
{
    return {
        .filename = QFileInfo(job.source).fileName(),
        .srcTC = srcTC,
        .elapsedTC = elapsedTC,
        .rate = job.meta.rate,
        .audioCount = job.meta.audioCount,
        .fileDate = job.meta.fileDate,
        .preset = job.preset,
        .burnInEnabled = job.burnInEnabled,
    };
}

QStringList videoOptions(QualityPreset preset, const SystemValues &system)
{
    const ProxyFormat format = proxyFormat(preset);
    return QStringList{QStringLiteral("-c:v"), system.videoEncoder.name} + system.videoEncoder.options +
           QStringList{QStringLiteral("-b:v"),     QLatin1String(format.videoRate),
                       QStringLiteral("-maxrate"), QLatin1String(format.highestRate),
                       QStringLiteral("-bufsize"), QLatin1String(format.bufferSize),
                       QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p")};
}

QStringList audioOptions(QualityPreset preset)
{
    return {QStringLiteral("-c:a"), QStringLiteral("aac"),
            QStringLiteral("-b:a"), QLatin1String(proxyFormat(preset).audioRate),
            QStringLiteral("-ar"),  QStringLiteral("48000"),
            QStringLiteral("-ac"),  QStringLiteral("2")};
}

/// The graph, the streams taken from it and how they are encoded.
QStringList graphAndEncoders(const EncodeJob &job, const SystemValues &system, const FilterInputs &inputs)
{
    const bool hasAudio = job.meta.audioCount >= 1;
    QStringList arguments = {QStringLiteral("-filter_complex"), buildFilter(inputs, system.fontFile),
                             QStringLiteral("-map"), QStringLiteral("[v]")};
    if (hasAudio)
        arguments += {QStringLiteral("-map"), QStringLiteral("[a]")};
    arguments += videoOptions(job.preset, system);
    if (hasAudio)
        arguments += audioOptions(job.preset);
    return arguments;
}

/// Puts the index at the file's beginning, where players want it.
QStringList finishedFile(const QString &output)
{
    return {QStringLiteral("-movflags"), QStringLiteral("+faststart"), output};
}

} // namespace

QStringList singlePassArguments(const EncodeJob &job, const SystemValues &system, const QString &output)
{
    return openingOptions(system) + QStringList{QStringLiteral("-i"), job.source} +
           graphAndEncoders(job, system, filterInputs(job, job.meta.tc, TimecodeMath::zero())) +
           QStringList{QStringLiteral("-timecode"), job.meta.tc} + finishedFile(output);
}

QStringList pieceArguments(const EncodeJob &job, const SystemValues &system, const Piece &piece,
                           const QString &output)
{
    const qint64 fps = TimecodeMath::nominalFPS(job.meta.rate);
    const QString srcTC = TimecodeMath::add(job.meta.tc, piece.start, fps);
    const QString elapsedTC = TimecodeMath::add(TimecodeMath::zero(), piece.start, fps);
    return openingOptions(system) +
           QStringList{QStringLiteral("-ss"), decimalText(piece.start), QStringLiteral("-i"), job.source,
                       QStringLiteral("-t"),  decimalText(piece.length)} +
           graphAndEncoders(job, system, filterInputs(job, srcTC, elapsedTC)) + finishedFile(output);
}

QStringList joinArguments(const QString &joinList, const QString &tc, const QString &output)
{
    return QStringList{QStringLiteral("-y"), QStringLiteral("-loglevel"), QStringLiteral("warning")} +
           QStringList{QStringLiteral("-f"), QStringLiteral("concat"), QStringLiteral("-safe"),
                       QStringLiteral("0"),  QStringLiteral("-i"),     joinList} +
           QStringList{QStringLiteral("-c"), QStringLiteral("copy"), QStringLiteral("-timecode"), tc, output};
}

QString plainFormat()
{
    return QStringLiteral("default=nw=1:nk=1");
}

QString csvFormat()
{
    return QStringLiteral("csv=p=0");
}

QStringList ffprobeArguments(const QString &entries, const QString &path, const QString &streams,
                             const QString &format)
{
    QStringList arguments = {QStringLiteral("-v"), QStringLiteral("error")};
    if (!streams.isEmpty())
        arguments += {QStringLiteral("-select_streams"), streams};
    return arguments +
           QStringList{QStringLiteral("-show_entries"), entries, QStringLiteral("-of"), format, path};
}

} // namespace marrowcut::media
