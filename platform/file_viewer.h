#pragma once

#include <QObject>
#include <QUrl>

#include <functional>

namespace marrowcut
{

/// The desktop's file viewer. Main thread.
class FileViewer
{
public:
    virtual ~FileViewer() = default;

    /// Shows a folder, selected in the folder that holds it. Returns at once; success is not reported,
    /// also when the folder does not exist.
    virtual void reveal(const QUrl &folder) = 0;
};

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
