#pragma once

#include "platform/folder_entries.h"

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QUrl>

#include <limits>
#include <optional>

namespace marrowcut
{

/// An item that gave no clip, and why.
struct RefusedItem {
    enum class Reason {
        noSuchPath,
        notAVideoFile,
        folderWithoutVideoFiles,
        unreadableFolder,
        nameIsNotText, ///< the name's bytes are not valid UTF-8, so it cannot be carried
    };

    QString path; ///< for showing only: bytes that are no text are written as \xHH
    Reason reason;
};

struct ExpandedItems {
    QList<QUrl> videoFiles;
    QList<RefusedItem> refused;
};

/// Bytes that are no text, in a form that can be shown: all beyond ASCII as \xHH.
QString shownBytes(QByteArrayView bytes);

/// Whether the name ends in .mxf, .mov or .mp4, in any letter case.
bool isVideoFileName(const QString &name);

/// Turns files and folders into the video files that they stand for, in the given order, a part at a time. A
/// folder stands for its own entries with a video file's name, hidden ones too, in the order in which the
/// file system lists them; folders within it are not entered. Any one thread.
class VideoFileReader
{
public:
    /// They come behind those that wait.
    void add(const QList<QUrl> &urls) { m_urls += urls; }

    bool atEnd() const { return m_urls.isEmpty() && !m_folder; }

    /// What the next so many items and entries of folders give; all that is left without a limit.
    ExpandedItems read(qsizetype limit = std::numeric_limits<qsizetype>::max());

private:
    /// The folder that is being read.
    struct Folder {
        QString path;
        QString prefix; ///< the path and a slash
        FolderEntries entries;
        bool gaveSome = false;
    };

    void readItem(ExpandedItems &items);
    void readEntry(ExpandedItems &items);
    void endFolder(ExpandedItems &items);

    QList<QUrl> m_urls;
    std::optional<Folder> m_folder;
};

} // namespace marrowcut
