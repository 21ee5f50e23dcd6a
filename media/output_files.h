#pragma once

#include <QDateTime>
#include <QString>

namespace marrowcut::media
{

/// Size and time, to detect a changed file.
struct FileStamp {
    qint64 size = 0;
    QDateTime modified;

    static FileStamp of(const QString &path);
    bool operator==(const FileStamp &) const = default;
};

/// Removes a file, or a folder that is empty. Errors are ignored.
void removeIfThere(const QString &path);

/// Removes a folder with everything in it. A symbolic link is removed itself, not its target. Errors are
/// ignored.
void removeFolder(const QString &path);

/// Creates a folder and all missing folders above it. Returns what went wrong; empty when the folder exists.
QString createFolder(const QString &path);

/// Creates a folder that nobody else can write to. An earlier one is removed with everything in it. Returns
/// what went wrong; empty on success, when the folder is new and empty.
QString replaceFolder(const QString &path);

/// A sentence when the path is a symbolic link, else empty.
QString linkProblem(const QString &path);

/// Replaces whatever is at the final path by the finished file, by renaming. Returns what went wrong; empty
/// when a file is at the final path afterwards. A link is not moved: its target can be anybody's.
QString moveIntoPlace(const QString &finished, const QString &finalPath);

/// A sentence when a folder that is not empty is at the path, where no proxy can be moved to; else empty.
QString folderInPlace(const QString &path);

/// Whether the file is an MP4 that was written to its end: top-level boxes that add up to exactly its
/// size, an index (moov) among them.
/// Source: ISO/IEC 14496-12, "Object-structured file organization".
bool isFinishedMp4(const QString &path);

} // namespace marrowcut::media
