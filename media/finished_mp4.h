#pragma once

#include <QString>

namespace marrowcut::media
{

/// Whether the file is an MP4 that was written to its end: top-level boxes that add up to exactly its
/// size, an index (moov) among them. ffmpeg can exit with 0 although the disk was full for the last bytes.
/// Source: ISO/IEC 14496-12, "Object-structured file organization".
bool isFinishedMp4(const QString &path);

/// What an encode that failed for that reason, or because it gave no picture, says below the tool's own last
/// lines.
QString unfinishedFile();
QString noPictures();

} // namespace marrowcut::media
