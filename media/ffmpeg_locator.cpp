#include "media/ffmpeg_locator.h"

#include "platform/resources.h"

namespace marrowcut::media::FFmpegLocator
{

const QString &ffmpegPath()
{
    static const QString path = resourceFolder() + QStringLiteral("/ffmpeg");
    return path;
}

const QString &ffprobePath()
{
    static const QString path = resourceFolder() + QStringLiteral("/ffprobe");
    return path;
}

} // namespace marrowcut::media::FFmpegLocator
