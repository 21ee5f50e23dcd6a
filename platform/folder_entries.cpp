#include "platform/folder_entries.h"

#include <QFile>

#include <dirent.h>

namespace marrowcut
{

FolderEntries::FolderEntries(const QString &folder)
    : m_directory(opendir(QFile::encodeName(folder).constData()))
{
}

void FolderEntries::Closing::operator()(void *directory) const
{
    closedir(static_cast<DIR *>(directory));
}

bool FolderEntries::isReadable() const
{
    return m_directory != nullptr;
}

std::optional<QByteArrayView> FolderEntries::next()
{
    if (!m_directory)
        return std::nullopt;
    while (const dirent *entry = readdir(static_cast<DIR *>(m_directory.get()))) {
        const QByteArrayView name(
            static_cast<const char *>(entry->d_name)); // longer than its array where it can be
        if (name != "." && name != "..")
            return name;
    }
    return std::nullopt;
}

} // namespace marrowcut
