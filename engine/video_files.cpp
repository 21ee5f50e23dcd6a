#include "engine/video_files.h"

#include "platform/file_names.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace marrowcut
{

namespace
{

using Reason = RefusedItem::Reason;

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

ExpandedItems VideoFileReader::read(qsizetype limit)
{
    ExpandedItems items;
    for (; limit > 0 && !atEnd(); --limit) {
        if (m_folder)
            readEntry(items);
        else
            readItem(items);
    }
    return items;
}

void VideoFileReader::readItem(ExpandedItems &items)
{
    const QUrl url = m_urls.takeFirst();
    const QString path = url.toLocalFile();
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        items.refused.append({path, Reason::noSuchPath});
    else if (info.isDir())
        m_folder = Folder{path, path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/'),
                          FolderEntries(path)};
    else if (isVideoFileName(info.fileName()))
        items.videoFiles.append(url);
    else
        items.refused.append({path, Reason::notAVideoFile});
}

void VideoFileReader::readEntry(ExpandedItems &items)
{
    const auto bytes = m_folder->entries.next();
    if (!bytes) {
        endFolder(items);
        return;
    }
    const auto name = decodeUtf8(*bytes);
    if (!isVideoFileName(name ? *name : QString::fromLatin1(*bytes)))
        return;
    m_folder->gaveSome = true;
    if (name)
        items.videoFiles.append(QUrl::fromLocalFile(m_folder->prefix + *name));
    else
        items.refused.append({m_folder->prefix + shownBytes(*bytes), Reason::nameIsNotText});
}

void VideoFileReader::endFolder(ExpandedItems &items)
{
    if (!m_folder->entries.isReadable())
        items.refused.append({m_folder->path, Reason::unreadableFolder});
    else if (!m_folder->gaveSome)
        items.refused.append({m_folder->path, Reason::folderWithoutVideoFiles});
    m_folder.reset();
}

} // namespace marrowcut
