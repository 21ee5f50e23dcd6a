#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

namespace marrowcut
{

/// An item that gave no clip, and why.
struct RefusedItem {
    Q_GADGET
public:
    /// Scripts compare the names, which --json prints: they never change.
    enum class Reason {
        noSuchPath,
        notAVideoFile,
        folderWithoutVideoFiles,
        unreadableFolder,
        nameIsNotText, ///< the name's bytes are not valid UTF-8, so it cannot be carried
    };
    Q_ENUM(Reason)

    QString path; ///< for showing only: bytes that are no text are written as \xHH
    Reason reason;
};

struct ExpandedItems {
    QList<QUrl> videoFiles;
    QList<RefusedItem> refused;
};

/// Whether the name ends in .mxf, .mov or .mp4, in any letter case.
bool isVideoFileName(const QString &name);

enum class Subfolders { skip, enter };

/// Turns files and folders into the video files that they stand for, in the given order. A folder stands for
/// its own entries with a video file's name, hidden ones included, in the order in which the file system
/// lists them. With Subfolders::enter it also stands for those of its subfolders, except output folders and
/// links. Thread-safe.
ExpandedItems expandItems(const QList<QUrl> &urls, Subfolders subfolders = Subfolders::skip);

/// Whether a folder that has no video files itself has some in subfolders that Subfolders::enter would enter.
bool hasVideoFilesInSubfolders(const QString &folder);

} // namespace marrowcut
