#include "media/output_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include <sys/stat.h>

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

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
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

QString makeFolder(const QString &path)
{
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    if (QFileInfo(path).isDir())
        return QString();
    return QStringLiteral("The folder %1 could not be made: %2")
        .arg(path, QString::fromLocal8Bit(error.message().c_str()));
}

QString makeFolderAnew(const QString &path)
{
    removeFolder(path);
    // Its parent may have to be made, too. The folder itself must not have been there: what lies in a folder
    // of somebody else's could lead a write anywhere.
    makeFolder(QFileInfo(path).path());
    if (mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0)
        return QString();
    return QStringLiteral("The work folder %1 could not be made anew: %2").arg(path, systemError());
}

QString linkProblem(const QString &path)
{
    if (!QFileInfo(path).isSymbolicLink())
        return QString();
    return QStringLiteral("%1 is a link that was not made here. Nothing was written through it.").arg(path);
}

QString moveIntoPlace(const QString &finished, const QString &finalPath)
{
    if (const QString problem = linkProblem(finished); !problem.isEmpty())
        return problem;
    // Not QFile::rename: where renaming fails, that falls back to copying, which could leave half a
    // file under the final name.
    const QByteArray from = QFile::encodeName(finished);
    const QByteArray to = QFile::encodeName(finalPath);
    int result = std::rename(from.constData(), to.constData());
    if (result != 0 && errno == EISDIR) {
        removeIfThere(finalPath); // an empty folder
        result = std::rename(from.constData(), to.constData());
    }
    const QString reason = systemError();
    if (result == 0 || QFileInfo(finalPath).isFile())
        return QString();
    return QStringLiteral("The proxy could not be moved to %1: %2").arg(finalPath, reason);
}

QString folderInPlace(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isDir() || info.isSymbolicLink() ||
        QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        return QString();
    return QStringLiteral("There is a folder in the place of the proxy: %1").arg(path);
}

QString noFrames()
{
    return QStringLiteral("ffmpeg reported success, but its file has no frames.");
}

QString unfinishedFile()
{
    return QStringLiteral("ffmpeg reported success, but its file is not complete.");
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
