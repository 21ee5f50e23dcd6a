#include "engine/failure_advice.h"

#include "media/ffmpeg_locator.h"

#include <QFileInfo>

#include <array>

namespace marrowcut
{

namespace
{

struct Advice {
    const char *complaint; ///< of a tool or of the system, as it stands in a detail
    const char *text;
};

constexpr const char *damaged = "The clip is damaged, or no video. Copy it from the card again, then retry.";

constexpr std::array knownComplaints = {
    Advice{"No space left on device", "The disk is full. Make room on it, then retry."},
    Advice{"Disk quota exceeded", "Your share of the disk is used up. Make room, then retry."},
    Advice{"Read-only file system",
           "The clip's disk cannot be written to. Copy the clip to another disk and add it from there."},
    Advice{"Input/output error", "The disk could not be read or written. Check its connection, then retry."},
    Advice{"Is a directory", "This is a folder with the name of a clip. Add the clips in it instead."},
    Advice{"moov atom not found", "The clip is incomplete, or no video. If its recording or copying was "
                                  "broken off, copy it from the card again."},
    Advice{"Could not find codec parameters", damaged},
    Advice{
        "Error setting option rate to value 0/0",
        "The clip tells no frame rate, so its timecode cannot be drawn. Without burn-in it can be encoded."},
    Advice{"Invalid data found when processing input", damaged},
    Advice{"Cannot determine format of input stream", damaged},
    Advice{"has no pictures", damaged},
};

/// A folder that could not be made is reported like a clip that is gone: the file system knows which it is.
QString placeAdvice(const ProxyJob &job)
{
    const QFileInfo clip(job.sourceURL.toLocalFile());
    if (!clip.exists())
        return QStringLiteral("The clip is not there any more. Connect its disk again, then retry.");
    if (!clip.isReadable())
        return QStringLiteral("The clip may not be read. Change its permissions, then retry.");
    return QStringLiteral("Nothing can be written beside the clip. Change the permissions of %1, then retry.")
        .arg(clip.path());
}

QString missingTool()
{
    for (const QString &path : {media::FFmpegLocator::ffmpegPath(), media::FFmpegLocator::ffprobePath()}) {
        if (const QFileInfo tool(path); !tool.isFile() || !tool.isExecutable())
            return QStringLiteral("%1 is missing: it was expected at %2. Install FFmpeg, then retry.")
                .arg(tool.fileName(), path);
    }
    return QString();
}

} // namespace

QString failureAdvice(const ProxyJob &job)
{
    if (!job.status.isFailed())
        return QString();
    if (const QString advice = missingTool(); !advice.isEmpty())
        return advice;
    const QString detail = job.errorDetail.value_or(QString());
    for (const Advice &known : knownComplaints) {
        if (detail.contains(QLatin1String(known.complaint)))
            return QString::fromLatin1(known.text);
    }
    for (const char *complaint : {"No such file or directory", "Permission denied"}) {
        if (detail.contains(QLatin1String(complaint)))
            return placeAdvice(job);
    }
    return QString();
}

} // namespace marrowcut
