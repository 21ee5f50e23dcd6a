#include "media/file_steps.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
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
    // Not QFile::rename: where renaming fails, that falls back to copying, which could leave half a
    // file under the final name.
    const QByteArray from = QFile::encodeName(finished);
    const QByteArray to = QFile::encodeName(finalPath);
    if (std::rename(from.constData(), to.constData()) != 0 && errno == EISDIR) {
        removeIfThere(finalPath); // an empty folder
        std::rename(from.constData(), to.constData());
    }
    return QFileInfo(finalPath).isFile();
}

} // namespace marrowcut::media
