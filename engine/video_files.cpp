#include "engine/video_files.h"

#include "engine/model/output_paths.h"
#include "platform/outside_text.h"

#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

namespace marrowcut
{

namespace
{

using FileType = std::filesystem::file_type;
using Reason = RefusedItem::Reason;

/// The names of a folder's entries that matter.
struct FolderContents {
    QByteArrayList videoFiles;
    QByteArrayList subfolders; ///< those to enter
};

/// Qt's own listing leaves out names that are not UTF-8. Empty when the folder cannot be opened; a folder
/// that fails midway ends there.
std::optional<FolderContents> folderContents(const QString &folder, Subfolders subfolders)
{
    std::error_code error;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    if (error)
        return std::nullopt;
    FolderContents contents;
    for (; entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const QByteArray name = QByteArray::fromStdString(entry->path().filename().native());
        std::error_code unknownType;
        if (subfolders == Subfolders::enter &&
            entry->symlink_status(unknownType).type() == FileType::directory) {
            if (name != outputFolderName().toUtf8())
                contents.subfolders.append(name);
        } else if (isVideoFileName(QString::fromLatin1(name))) {
            contents.videoFiles.append(name);
        }
    }
    return contents;
}

QString withSlash(const QString &folder)
{
    return folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

/// The paths of entries. Those whose names are no text are refused.
QStringList entryPaths(const QString &folder, const QByteArrayList &names, QList<RefusedItem> &refused)
{
    const QString prefix = withSlash(folder);
    QStringList paths;
    for (const QByteArray &bytes : names) {
        if (const auto name = decodeUtf8(bytes))
            paths.append(prefix + *name);
        else
            refused.append({prefix + shownBytes(bytes), Reason::nameIsNotText});
    }
    return paths;
}

void expandFolder(const QString &path, Subfolders subfolders, ExpandedItems &items)
{
    const auto results = [&items] { return items.videoFiles.size() + items.refused.size(); };
    const qsizetype resultsBefore = results();
    QStringList pending = {path};
    while (!pending.isEmpty()) {
        const QString folder = pending.takeFirst();
        const auto contents = folderContents(folder, subfolders);
        if (!contents) {
            items.refused.append({folder, Reason::unreadableFolder});
            continue;
        }
        for (const QString &file : entryPaths(folder, contents->videoFiles, items.refused))
            items.videoFiles.append(QUrl::fromLocalFile(file));
        pending = entryPaths(folder, contents->subfolders, items.refused) + pending;
    }
    if (results() == resultsBefore)
        items.refused.append({path, Reason::folderWithoutVideoFiles});
}

void expandItem(const QUrl &url, Subfolders subfolders, ExpandedItems &items)
{
    const QString path = url.toLocalFile();
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        items.refused.append({path, Reason::noSuchPath});
    else if (info.isDir())
        expandFolder(path, subfolders, items);
    else if (isVideoFileName(info.fileName()))
        items.videoFiles.append(url);
    else
        items.refused.append({path, Reason::notAVideoFile});
}

} // namespace

bool isVideoFileName(const QString &name)
{
    constexpr std::array videoExtensions = {QLatin1String(".mxf"), QLatin1String(".mov"),
                                            QLatin1String(".mp4")};
    return std::ranges::any_of(videoExtensions, [&name](QLatin1String extension) {
        return name.endsWith(extension, Qt::CaseInsensitive);
    });
}

ExpandedItems expandItems(const QList<QUrl> &urls, Subfolders subfolders)
{
    ExpandedItems items;
    for (const QUrl &url : urls)
        expandItem(url, subfolders, items);
    return items;
}

bool hasVideoFilesInSubfolders(const QString &folder)
{
    QStringList pending = {folder};
    QList<RefusedItem> refused;
    while (!pending.isEmpty()) {
        const QString path = pending.takeLast();
        const auto contents = folderContents(path, Subfolders::enter);
        if (contents && !contents->videoFiles.isEmpty())
            return true;
        if (contents)
            pending += entryPaths(path, contents->subfolders, refused);
    }
    return false;
}

} // namespace marrowcut
