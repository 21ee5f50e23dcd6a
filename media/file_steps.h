#pragma once

#include <QString>

/// File-system housekeeping that reports no errors of its own: success shows in what exists after.
namespace marrowcut::media
{

/// Removes a file, or a folder that is empty.
void removeIfThere(const QString &path);

/// Removes a folder with all that is in it. A symbolic link is removed itself, not what it leads to.
void removeFolder(const QString &path);

/// Replaces whatever is at the final path by the finished file, by renaming.
/// Returns whether a file is at the final path afterwards.
bool moveIntoPlace(const QString &finished, const QString &finalPath);

} // namespace marrowcut::media
