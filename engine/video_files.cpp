#include "engine/video_files.h"

#include "platform/utf8.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <filesystem>

namespace marrowcut
{

namespace
{

namespace fs = std::filesystem;
using Reason = RefusedItem::Reason;

void addEntry(const QString &folder, const std::string &nameBytes, ExpandedItems &items)
{
    const auto name = decodeUtf8(nameBytes);
    if (name && isVideoFileName(*name))
        items.videoFiles.append(QUrl::fromLocalFile(folder + *name));
    else if (!name && isVideoFileName(QString::fromLatin1(nameBytes.data(), qsizetype(nameBytes.size()))))
        items.refused.append({folder + shownBytes(nameBytes), Reason::nameIsNotText});
}

void addFolder(const QString &path, ExpandedItems &items)
{
    // Qt's own listing leaves out names that are not UTF-8 without a word.
    std::error_code error;
    fs::directory_iterator entry(QFile::encodeName(path).toStdString(), error);
    if (error) {
        items.refused.append({path, Reason::unreadableFolder});
        return;
    }
    const QString folder = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
    const qsizetype before = items.videoFiles.size() + items.refused.size();
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
        addEntry(folder, entry->path().filename().native(), items);
    if (items.videoFiles.size() + items.refused.size() == before)
        items.refused.append({path, Reason::folderWithoutVideoFiles});
}

void addItem(const QUrl &url, ExpandedItems &items)
{
    const QString path = url.toLocalFile();
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        items.refused.append({path, Reason::noSuchPath});
    else if (info.isDir())
        addFolder(path, items);
    else if (isVideoFileName(info.fileName()))
        items.videoFiles.append(url);
    else
        items.refused.append({path, Reason::notAVideoFile});
}

} // namespace

QString shownBytes(QByteArrayView bytes)
{
    QString shown;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        shown += value < 0x80 ? QString(QLatin1Char(byte)) : QString::asprintf("\\x%02X", value);
    }
    return shown;
}

bool isVideoFileName(const QString &name)
{
    static const QSet<QString> videoExtensions = {QStringLiteral("mxf"), QStringLiteral("mov"),
                                                  QStringLiteral("mp4")};
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot >= 0 && videoExtensions.contains(name.sliced(dot + 1).toLower());
}

ExpandedItems expandVideoFiles(const QList<QUrl> &urls)
{
    ExpandedItems items;
    for (const QUrl &url : urls)
        addItem(url, items);
    return items;
}

} // namespace marrowcut
