#include "media/ffmpeg_locator.h"

#include "platform/resources.h"

#include <QFileInfo>

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

QStringList missingTools()
{
    QStringList sentences;
    for (const QString &path : {ffmpegPath(), ffprobePath()}) {
        const QFileInfo tool(path);
        if (!tool.isFile())
            sentences.append(
                QStringLiteral("%1 is missing: it was expected at %2.").arg(tool.fileName(), path));
        else if (!tool.isExecutable())
            sentences.append(QStringLiteral("%1 is not executable: %2").arg(tool.fileName(), path));
    }
    return sentences;
}

} // namespace marrowcut::media::FFmpegLocator
