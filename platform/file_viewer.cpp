#include "platform/file_viewer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>

namespace marrowcut
{

namespace
{

/// A file viewer may have to be started for the call.
constexpr int replyLimitMilliseconds = 10000;

QDBusMessage showItems(const QUrl &item)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    message << QStringList{QString::fromLatin1(item.toEncoded())} << QString(); // no startup id
    return message;
}

/// The path itself or the closest parent folder that exists.
QString closestFolder(QString path)
{
    while (path.size() > 1 && !QFileInfo(path).isDir())
        path = path.left(std::max<qsizetype>(path.lastIndexOf(QLatin1Char('/')), 1));
    return path;
}

} // namespace

DesktopFileViewer::DesktopFileViewer(std::function<void(const QUrl &)> openFolder, QObject *parent)
    : QObject(parent)
    , m_openFolder(std::move(openFolder))
{
}

void DesktopFileViewer::reveal(const QUrl &folder)
{
    if (m_isReplyPending)
        return; // the file viewer may still be starting
    const QDBusConnection bus = QDBusConnection::sessionBus();
    // A file viewer that is asked for what does not exist may show an error or nothing at all.
    if (!bus.isConnected() || !QFileInfo::exists(folder.toLocalFile())) {
        openClosestFolder(folder);
        return;
    }
    m_isReplyPending = true;
    auto *watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(showItems(folder), replyLimitMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, folder] {
        watcher->deleteLater();
        m_isReplyPending = false;
        if (watcher->isError())
            openClosestFolder(folder);
    });
}

void DesktopFileViewer::openClosestFolder(const QUrl &folder)
{
    m_openFolder(QUrl::fromLocalFile(closestFolder(folder.toLocalFile())));
}

} // namespace marrowcut
