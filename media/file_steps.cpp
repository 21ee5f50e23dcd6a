#include "media/file_steps.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <filesystem>

namespace marrowcut::media
{

void removeIfThere(const QString &path)
{
    std::remove(QFile::encodeName(path).constData());
}

void removeFolder(const QString &path)
{
    std::error_code ignored;
    std::filesystem::remove_all(QFile::encodeName(path).toStdString(), ignored);
}

bool moveIntoPlace(const QString &finished, const QString &finalPath)
{
    removeIfThere(finalPath);
    // Not QFile::rename: where renaming fails, that falls back to copying, which could leave half a
    // file under the final name.
    std::rename(QFile::encodeName(finished).constData(), QFile::encodeName(finalPath).constData());
    return QFileInfo(finalPath).isFile();
}

} // namespace marrowcut::media
