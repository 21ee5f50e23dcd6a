#pragma once

#include <QLatin1String>

/// The lines that are added to an error detail where the tools' own lines do not give the reason. Each begins
/// with one of these; the advice for a failed clip is found by them.
namespace marrowcut::media
{

// followed by a path, and by the system's reason where there is one
inline constexpr QLatin1String folderNotCreated("The folder could not be created: ");
inline constexpr QLatin1String workFolderNotReplaced("The work folder could not be replaced: ");
inline constexpr QLatin1String folderInPlaceOfProxy("There is a folder in the place of the proxy: ");
inline constexpr QLatin1String linkInTheWay("This is a symbolic link that Marrowcut did not create: ");
inline constexpr QLatin1String proxyNotMoved("The proxy could not be moved into place: ");

inline constexpr QLatin1String endedBySignal("ffmpeg was ended by signal "); // number and name follow
inline constexpr QLatin1String incompleteOutput("ffmpeg reported success, but its file is not complete.");
inline constexpr QLatin1String outputWithoutFrames("ffmpeg reported success, but its file has no frames.");
inline constexpr QLatin1String sourceChanged("The clip was changed or replaced while it was being encoded.");
inline constexpr QLatin1String outOfMemory("There was not enough memory for this clip.");
inline constexpr QLatin1String notAFile("This is not a file.");
inline constexpr QLatin1String textFile("This is a text file, not footage.");
inline constexpr QLatin1String noVideoStream("ffprobe could not find a valid video stream in this file.");

} // namespace marrowcut::media
