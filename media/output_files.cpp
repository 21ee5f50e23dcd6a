#include "media/output_files.h"

#include "media/failure_messages.h"

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

/// In English whatever the user's language: the advice for a failed clip depends on it.
QString systemReason(int error)
{
    const char *text = strerrordesc_np(error);
    return QString::fromLatin1(text ? text : "unknown error");
}

QString problem(QLatin1String message, const QString &path, int error)
{
    return message + path + QStringLiteral(": ") + systemReason(error);
}

} // namespace

FileStamp FileStamp::of(const QString &path)
{
    const QFileInfo file(path);
    return {file.size(), file.lastModified()};
}

void removeIfThere(const QString &path)
{
    std::remove(QFile::encodeName(path).constData());
}

void removeFolder(const QString &path)
{
    std::error_code ignored;
    std::filesystem::remove_all(QFile::encodeName(path).toStdString(), ignored);
}

QString createFolder(const QString &path)
{
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    if (QFileInfo(path).isDir())
        return QString();
    return problem(folderNotCreated, path, error ? error.value() : ENOTDIR);
}

QString replaceFolder(const QString &path)
{
    removeFolder(path);
    if (QString parentProblem = createFolder(QFileInfo(path).path()); !parentProblem.isEmpty())
        return parentProblem;
    // It must be new: what lies in somebody else's folder could lead a write anywhere.
    if (mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0)
        return QString();
    return problem(workFolderNotReplaced, path, errno);
}

QString linkProblem(const QString &path)
{
    if (!QFileInfo(path).isSymbolicLink())
        return QString();
    return linkInTheWay + path;
}

QString moveIntoPlace(const QString &finished, const QString &finalPath)
{
    if (QString link = linkProblem(finished); !link.isEmpty())
        return link;
    // Not QFile::rename: where renaming fails, that falls back to copying, which could leave half a
    // file under the final name.
    const QByteArray from = QFile::encodeName(finished);
    const QByteArray to = QFile::encodeName(finalPath);
    int result = std::rename(from.constData(), to.constData());
    if (result != 0 && errno == EISDIR) {
        removeIfThere(finalPath); // an empty folder
        result = std::rename(from.constData(), to.constData());
    }
    const int error = errno;
    if (result == 0 || QFileInfo(finalPath).isFile())
        return QString();
    return problem(proxyNotMoved, finalPath, error);
}

QString folderInPlace(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isDir() || info.isSymbolicLink() ||
        QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        return QString();
    return folderInPlaceOfProxy + path;
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
