#pragma once

#include <QString>
#include <QStringList>

/// Where the two tools are: in the application's resource folder and nowhere else. A tool that is missing
/// fails to start. Thread-safe.
namespace marrowcut::media::FFmpegLocator
{

/// Absolute path of ffmpeg, resolved on first use.
const QString &ffmpegPath();
/// Absolute path of ffprobe, resolved on first use.
const QString &ffprobePath();

/// A sentence for each tool that is not there or not executable, with the place where it is expected. Looks
/// at the disk.
QStringList missingTools();

} // namespace marrowcut::media::FFmpegLocator
