#pragma once

#include <QString>

namespace marrowcut
{

/// The path from the root; "." and doubled slashes are taken out. ".." stays: where links are involved, only
/// the file system knows what it means.
QString absolutePath(const QString &path);

} // namespace marrowcut
