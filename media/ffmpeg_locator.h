#pragma once

#include <QString>

/// Where the two tools are: in the application's resource folder and nowhere else. Not checked for
/// existence; a tool that is missing fails to start. Any thread.
namespace marrowcut::media::FFmpegLocator
{

/// Absolute path of ffmpeg, settled on first use.
const QString &ffmpegPath();
/// Absolute path of ffprobe, settled on first use.
const QString &ffprobePath();

} // namespace marrowcut::media::FFmpegLocator
