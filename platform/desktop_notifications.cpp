#include "platform/desktop_notifications.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QTimer>
#include <QVariantMap>

namespace marrowcut
{

namespace
{

QDBusMessage serverCall(const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

} // namespace

DesktopNotifications::DesktopNotifications(QString desktopEntry, std::chrono::milliseconds replyLimit,
                                           QObject *parent)
    : QObject(parent)
    , m_desktopEntry(std::move(desktopEntry))
    , m_replyLimit(replyLimit)
{
}

void DesktopNotifications::requestAuthorization(std::function<void(bool)> deliver)
{
    call(serverCall(QStringLiteral("GetServerInformation")), std::move(deliver));
}

void DesktopNotifications::add(const NotificationRequest &request)
{
    const QVariantMap hints = {
        {QStringLiteral("desktop-entry"), m_desktopEntry},
        {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
    };
    QDBusMessage message = serverCall(QStringLiteral("Notify"));
    message << QStringLiteral("Marrowcut")                    // application name
            << 0U                                             // replaces no other notification
            << m_desktopEntry                                 // icon
            << request.title << request.body << QStringList() // no actions
            << hints << -1;                                   // the server's own time on screen
    call(message, [](bool) {});
}

void DesktopNotifications::whenIdle(const std::function<void()> &then)
{
    if (m_pendingCalls == 0)
        then();
    else
        connect(this, &DesktopNotifications::becameIdle, this, then, Qt::SingleShotConnection);
}

void DesktopNotifications::call(const QDBusMessage &message, std::function<void(bool)> deliver)
{
    ++m_pendingCalls;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) { // a watcher would wait for ever
        QTimer::singleShot(0, this, [this, deliver = std::move(deliver)] { finishCall(false, deliver); });
        return;
    }
    auto *watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(message, static_cast<int>(m_replyLimit.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, deliver = std::move(deliver)] {
        watcher->deleteLater();
        finishCall(!watcher->isError(), deliver);
    });
}

void DesktopNotifications::finishCall(bool succeeded, const std::function<void(bool)> &deliver)
{
    deliver(succeeded); // may begin another call
    if (--m_pendingCalls == 0)
        Q_EMIT becameIdle();
}

} // namespace marrowcut
