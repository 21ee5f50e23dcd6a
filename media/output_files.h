#pragma once

#include <QString>

namespace marrowcut::media
{

/// Removes a file, or a folder that is empty. Errors are ignored.
void removeIfThere(const QString &path);

/// Removes a folder with everything in it. A symbolic link is removed itself, not its target. Errors are
/// ignored.
void removeFolder(const QString &path);

/// Makes a folder with all that is missing above it. Returns what went wrong; empty when it is there.
QString makeFolder(const QString &path);

/// Makes a folder that nobody else can write to. An earlier one is removed with everything in it. Returns
/// what went wrong; empty on success, when the folder is new and empty.
QString makeFolderAnew(const QString &path);

/// A sentence when the path is a symbolic link, else empty.
QString linkProblem(const QString &path);

/// Replaces whatever is at the final path by the finished file, by renaming. Returns what went wrong; empty
/// when a file is at the final path afterwards. A link is not moved: what it points to was not made here.
QString moveIntoPlace(const QString &finished, const QString &finalPath);

/// A sentence when a folder that is not empty is at the path, where no proxy can be moved to; else empty.
QString folderInPlace(const QString &path);

/// Whether the file is an MP4 that was written to its end: top-level boxes that add up to exactly its
/// size, an index (moov) among them.
/// Source: ISO/IEC 14496-12, "Object-structured file organization".
bool isFinishedMp4(const QString &path);

/// What an encode that failed for that reason, or because its output has no frames, says below ffmpeg's own
/// last lines.
QString unfinishedFile();
QString noFrames();

} // namespace marrowcut::media
