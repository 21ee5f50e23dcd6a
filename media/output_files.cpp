#include "media/output_files.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace marrowcut::media
{

namespace
{

constexpr qint64 shortHeader = 8; // 32-bit size and type
constexpr qint64 longHeader = 16; // the same, then a 64-bit size

/// Size of the box that begins where the file stands, header included; -1 where none is.
qint64 boxSize(QFile &file, QByteArray &type)
{
    const QByteArray header = file.read(shortHeader);
    if (header.size() < shortHeader)
        return -1;
    type = header.mid(4);
    const qint64 size = qFromBigEndian<quint32>(header.constData());
    if (size != 1)
        return size >= shortHeader ? size : -1;
    const QByteArray longSize = file.read(longHeader - shortHeader);
    if (longSize.size() < longHeader - shortHeader)
        return -1;
    const auto wholeSize = qFromBigEndian<qint64>(longSize.constData());
    return wholeSize >= longHeader ? wholeSize : -1;
}

} // namespace

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

QString noPictures()
{
    return QStringLiteral("The encoder reported success, but its file has no pictures. Is the clip damaged?");
}

QString unfinishedFile()
{
    return QStringLiteral("The encoder reported success, but its file is not complete. Is the disk full?");
}

bool isFinishedMp4(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bool hasIndex = false;
    qint64 position = 0;
    while (position < file.size()) {
        QByteArray type;
        const qint64 size = file.seek(position) ? boxSize(file, type) : -1;
        if (size < 0 || size > file.size() - position)
            return false;
        hasIndex = hasIndex || type == "moov";
        position += size;
    }
    return hasIndex;
}

} // namespace marrowcut::media
