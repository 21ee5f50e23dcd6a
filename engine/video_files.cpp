#include "engine/video_files.h"

#include "platform/file_names.h"

#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

namespace marrowcut
{

namespace
{

using Reason = RefusedItem::Reason;

/// Qt's own listing leaves out names that are not UTF-8. Empty when the folder cannot be opened; a folder
/// that fails midway ends there.
std::optional<QByteArrayList> entryNames(const QString &folder)
{
    std::error_code error;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    if (error)
        return std::nullopt;
    QByteArrayList names;
    for (; entry != std::filesystem::directory_iterator(); entry.increment(error))
        names.append(QByteArray::fromStdString(entry->path().filename().native()));
    return names;
}

void expandFolder(const QString &path, ExpandedItems &items)
{
    const auto names = entryNames(path);
    if (!names) {
        items.refused.append({path, Reason::unreadableFolder});
        return;
    }
    const QString prefix = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
    bool hasVideoFiles = false;
    for (const QByteArray &bytes : *names) {
        const auto name = decodeUtf8(bytes);
        if (!isVideoFileName(name ? *name : QString::fromLatin1(bytes)))
            continue;
        hasVideoFiles = true;
        if (name)
            items.videoFiles.append(QUrl::fromLocalFile(prefix + *name));
        else
            items.refused.append({prefix + shownBytes(bytes), Reason::nameIsNotText});
    }
    if (!hasVideoFiles)
        items.refused.append({path, Reason::folderWithoutVideoFiles});
}

void expandItem(const QUrl &url, ExpandedItems &items)
{
    const QString path = url.toLocalFile();
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        items.refused.append({path, Reason::noSuchPath});
    else if (info.isDir())
        expandFolder(path, items);
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
    constexpr std::array videoExtensions = {QLatin1String(".mxf"), QLatin1String(".mov"),
                                            QLatin1String(".mp4")};
    return std::ranges::any_of(videoExtensions, [&name](QLatin1String extension) {
        return name.endsWith(extension, Qt::CaseInsensitive);
    });
}

ExpandedItems expandItems(const QList<QUrl> &urls)
{
    ExpandedItems items;
    for (const QUrl &url : urls)
        expandItem(url, items);
    return items;
}

} // namespace marrowcut
