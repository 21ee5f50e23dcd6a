#pragma once

#include "platform/file_viewer.h"

#include <QObject>

#include <functional>

namespace marrowcut
{

/// The file viewer behind org.freedesktop.FileManager1 on the session bus. Without a bus or a reply, the
/// closest existing parent folder is opened instead. Ignores further requests while a reply is pending.
class DesktopFileViewer : public QObject, public FileViewer
{
    Q_OBJECT
public:
    /// openFolder opens a folder with the program that the desktop has for folders.
    explicit DesktopFileViewer(std::function<void(const QUrl &folder)> openFolder, QObject *parent = nullptr);

    void reveal(const QUrl &folder) override;

private:
    void openClosestFolder(const QUrl &folder);

    std::function<void(const QUrl &folder)> m_openFolder;
    bool m_isReplyPending = false;
};

} // namespace marrowcut
