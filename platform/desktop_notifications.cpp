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

/// A server that hangs must not hold up a program that waits for its answer.
constexpr int answerLimitMilliseconds = 2000;

QDBusMessage serverCall(const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

} // namespace

DesktopNotifications::DesktopNotifications(QString desktopEntry, QObject *parent)
    : QObject(parent)
    , m_desktopEntry(std::move(desktopEntry))
{
}

void DesktopNotifications::requestAuthorization(std::function<void(bool)> answer)
{
    call(serverCall(QStringLiteral("GetServerInformation")), std::move(answer));
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

void DesktopNotifications::whenIdle(std::function<void()> then)
{
    if (m_pendingCalls == 0)
        then();
    else
        connect(this, &DesktopNotifications::becameIdle, this, std::move(then), Qt::SingleShotConnection);
}

void DesktopNotifications::call(const QDBusMessage &message, std::function<void(bool)> answer)
{
    ++m_pendingCalls;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) { // a watcher would wait for ever
        QTimer::singleShot(0, this, [this, answer = std::move(answer)] { finishCall(false, answer); });
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, answerLimitMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, answer = std::move(answer)] {
        watcher->deleteLater();
        finishCall(!watcher->isError(), answer);
    });
}

void DesktopNotifications::finishCall(bool succeeded, const std::function<void(bool)> &answer)
{
    answer(succeeded); // may begin another call
    if (--m_pendingCalls == 0)
        Q_EMIT becameIdle();
}

} // namespace marrowcut
