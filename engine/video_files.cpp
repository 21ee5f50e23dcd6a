#include "engine/video_files.h"

#include "platform/folder_entries.h"
#include "platform/utf8.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace marrowcut
{

namespace
{

using Reason = RefusedItem::Reason;

void addEntry(const QString &folder, QByteArrayView nameBytes, ExpandedItems &items)
{
    const auto name = decodeUtf8(nameBytes);
    if (name && isVideoFileName(*name))
        items.videoFiles.append(QUrl::fromLocalFile(folder + *name));
    else if (!name && isVideoFileName(QString::fromLatin1(nameBytes)))
        items.refused.append({folder + shownBytes(nameBytes), Reason::nameIsNotText});
}

void addFolder(const QString &path, ExpandedItems &items)
{
    const QString folder = path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
    const qsizetype before = items.videoFiles.size() + items.refused.size();
    if (!forEachEntry(path, [&](QByteArrayView name) { addEntry(folder, name, items); }))
        items.refused.append({path, Reason::unreadableFolder});
    else if (items.videoFiles.size() + items.refused.size() == before)
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
    constexpr std::array videoExtensions = {QLatin1String(".mxf"), QLatin1String(".mov"),
                                            QLatin1String(".mp4")};
    return std::ranges::any_of(videoExtensions, [&name](QLatin1String extension) {
        return name.endsWith(extension, Qt::CaseInsensitive);
    });
}

ExpandedItems expandVideoFiles(const QList<QUrl> &urls)
{
    ExpandedItems items;
    for (const QUrl &url : urls)
        addItem(url, items);
    return items;
}

} // namespace marrowcut
