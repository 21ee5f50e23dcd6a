#include "platform/folder_entries.h"

#include <QFile>

#include <dirent.h>

#include <memory>

namespace marrowcut
{

bool forEachEntry(const QString &folder, const std::function<void(QByteArrayView)> &tell)
{
    const auto close = [](DIR *open) { closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> directory(opendir(QFile::encodeName(folder).constData()));
    if (!directory)
        return false;
    while (const dirent *entry = readdir(directory.get())) {
        const QByteArrayView name(
            static_cast<const char *>(entry->d_name)); // longer than its array where it can be
        if (name != "." && name != "..")
            tell(name);
    }
    return true;
}

} // namespace marrowcut
