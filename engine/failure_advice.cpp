#include "engine/failure_advice.h"

#include "engine/model/output_paths.h"
#include "media/failure_messages.h"

#include <QFileInfo>
#include <QStringList>

#include <array>

namespace marrowcut
{

namespace
{

struct Advice {
    QLatin1String message; ///< of a tool, of the system or of the encoder, as it stands in a detail
    const char *text;
};

constexpr const char *otherDisk =
    "Nothing can be written beside the clip. Copy the clips to another disk and add them from there.";
constexpr const char *undecodable =
    "ffmpeg cannot decode this clip. If it plays elsewhere, it may be encrypted, in a format that ffmpeg "
    "lacks, or refer to media in other files; if not, copy it from the card again, then retry.";

/// The first match in the detail wins. Each text names at most one place: %1 is the proxy's folder, %2 the
/// proxy, %3 the work folder.
constexpr std::array knownMessages = {
    Advice{media::folderInPlaceOfProxy, "Rename or move the folder %2, then retry."},
    Advice{media::linkInTheWay, "Remove that link, then retry."},
    Advice{media::sourceChanged, "Wait until the clip is copied completely, then retry."},
    Advice{QLatin1String("Disk quota exceeded"), "Your disk quota is used up. Free some space, then retry."},
    Advice{QLatin1String("Read-only file system"), otherDisk},
    Advice{QLatin1String("Input/output error"),
           "The disk could not be read or written. Check its connection, then retry."},
    Advice{media::workFolderNotReplaced, "Remove the folder %3, then retry."},
    Advice{media::proxyNotMoved, "Check the permissions of %1, then retry."},
    Advice{media::outOfMemory, "Close other programs, then retry."},
    Advice{media::endedBySignal, "ffmpeg crashed or was ended from outside, for example because the memory "
                                 "ran out. Close other programs, then retry."},
    Advice{QLatin1String("File name too long"),
           "The proxy's name would be too long. Rename the clip to a shorter name and "
           "add it again."},
    Advice{media::textFile, "Add the camera's own files instead."},
    Advice{QLatin1String("moov atom not found"),
           "The clip is incomplete or is not a video. If its recording or copying was "
           "interrupted, copy it from the card again."},
    Advice{QLatin1String("Error setting option rate to value 0/0"),
           "The clip reports no frame rate, so its timecode cannot be drawn. Turn burn-in off for this clip "
           "and try again."},
    Advice{QLatin1String("Unable to parse timecode"),
           "The clip's timecode cannot be drawn. Turn burn-in off for this clip and try again."},
    Advice{QLatin1String("Drop frame is only allowed"),
           "The clip's drop-frame timecode does not fit its frame rate. Turn burn-in off for this clip and "
           "try again."},
    Advice{media::noVideoStream,
           "The clip has no video that can be read. If this is said of every clip, check that FFmpeg is "
           "installed."},
    Advice{media::incompleteOutput, "Check that the disk is not full, then retry."},
    Advice{QLatin1String("Could not find codec parameters"), undecodable},
    Advice{QLatin1String("Invalid data found when processing input"), undecodable},
    Advice{QLatin1String("Cannot determine format of input stream"), undecodable},
    Advice{media::outputWithoutFrames, undecodable},
};

QString diskFullAdvice(const QString &detail, const OutputPaths &paths)
{
    QString advice = QStringLiteral("The disk is full. Free some space on it, then retry.");
    if (!detail.contains(paths.workFolder))
        return advice;
    return advice + QStringLiteral(" The finished pieces are in the hidden folder %1.").arg(paths.workFolder);
}

/// For a folder that could not be created beside the clip.
QString folderAdvice(const QString &detail, const OutputPaths &paths)
{
    if (!detail.contains(media::folderNotCreated))
        return QString();
    const QString parent = QFileInfo(paths.outDir).path();
    if (detail.contains(QLatin1String("Permission denied")))
        return QStringLiteral(
                   "No folder can be created beside the clip. Change the permissions of %1, or copy "
                   "the clips to another disk and add them from there.")
            .arg(parent);
    if (detail.contains(QLatin1String("Read-only file system")))
        return QString::fromLatin1(otherDisk);
    return QStringLiteral("Something else is in the place of %1. Rename or remove it, then retry.")
        .arg(paths.outDir);
}

/// For messages that name a path: it makes a difference whether that is the clip or its proxy's place.
QString placeAdvice(const QString &detail, const QString &source, const OutputPaths &paths)
{
    const bool isDenied = detail.contains(QLatin1String("Permission denied"));
    if (!isDenied && !detail.contains(QLatin1String("No such file or directory")))
        return QString();
    if (detail.contains(paths.outDir)) {
        return isDenied
                   ? QStringLiteral("Nothing can be written in %1. Change the permissions there, or copy the "
                                    "clips to another disk and add them from there.")
                         .arg(paths.outDir)
                   : QStringLiteral(
                         "The folder %1 is not there any more. Connect its disk again, then retry.")
                         .arg(paths.outDir);
    }
    if (!detail.contains(source))
        return QString();
    return isDenied ? QStringLiteral(
                          "The clip cannot be read (no permission). Change its permissions, then retry.")
                    : QStringLiteral("The clip is not there any more. Connect its disk again, then retry.");
}

/// The text with the place that its marker stands for.
QString filledIn(QString text, const OutputPaths &paths)
{
    for (const auto &[marker, path] :
         {std::pair(QStringLiteral("%1"), paths.outDir), std::pair(QStringLiteral("%2"), paths.finalOutput),
          std::pair(QStringLiteral("%3"), paths.workFolder)}) {
        if (text.contains(marker))
            return text.replace(marker, path);
    }
    return text;
}

/// The system's message alone does not say whether the clip or its temporary output is meant.
QString directoryAdvice(const QString &detail, const OutputPaths &paths)
{
    if (!detail.contains(QLatin1String("Is a directory")))
        return QString();
    if (detail.contains(paths.tmpOutput))
        return QStringLiteral("Remove the folder %1, then retry.").arg(paths.tmpOutput);
    return QStringLiteral("This is a folder with the name of a clip. Add the clips in it instead.");
}

QString knownAdvice(const QString &detail, const OutputPaths &paths)
{
    for (const Advice &known : knownMessages) {
        if (detail.contains(known.message))
            return filledIn(QString::fromLatin1(known.text), paths);
    }
    return QString();
}

/// Statistics, and what FFmpeg 7 says of `-timecode` whenever an encode does not get as far as writing.
bool isNoise(const QString &line)
{
    return (line.contains(QLatin1String("time=")) && line.contains(QLatin1String("bitrate="))) ||
           line.contains(QLatin1String("has not been used for any stream"));
}

} // namespace

QString failureAdvice(const ProxyJob &job)
{
    if (!job.status.isFailed())
        return QString();
    const QString detail = job.errorDetail.value_or(QString());
    if (detail.isEmpty())
        return QStringLiteral("ffmpeg could not be started. Check that FFmpeg is installed, then retry.");
    const OutputPaths paths = OutputPaths::forSource(job.sourceURL);
    if (detail.contains(QLatin1String("No space left on device")))
        return diskFullAdvice(detail, paths);
    if (QString advice = folderAdvice(detail, paths); !advice.isEmpty())
        return advice;
    if (QString advice = directoryAdvice(detail, paths); !advice.isEmpty())
        return advice;
    const QString advice = knownAdvice(detail, paths);
    return advice.isEmpty() ? placeAdvice(detail, job.sourceURL.toLocalFile(), paths) : advice;
}

QString errorMessages(const ProxyJob &job)
{
    QStringList lines = job.errorDetail.value_or(QString()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.removeIf(isNoise);
    return lines.join(QLatin1Char('\n')).trimmed();
}

} // namespace marrowcut
