#pragma once

#include <QString>

namespace marrowcut::media
{

/// File-system housekeeping that reports no errors of its own: success shows in what exists after.
/// Removes a file, or a folder that is empty.
void removeIfThere(const QString &path);

/// Removes a folder with all that is in it. A symbolic link is removed itself, not what it leads to.
void removeFolder(const QString &path);

/// Replaces whatever is at the final path by the finished file, by renaming.
/// Returns whether a file is at the final path afterwards.
bool moveIntoPlace(const QString &finished, const QString &finalPath);

/// Whether the file is an MP4 that was written to its end: top-level boxes that add up to exactly its
/// size, an index (moov) among them. ffmpeg can exit with 0 although the disk was full for the last bytes.
/// Source: ISO/IEC 14496-12, "Object-structured file organization".
bool isFinishedMp4(const QString &path);

/// What an encode that failed for that reason, or because it gave no picture, says below the tool's own last
/// lines.
QString unfinishedFile();
QString noPictures();

} // namespace marrowcut::media
