#pragma once

#include "platform/notification_center.h"

#include <QObject>

#include <chrono>

class QDBusMessage;

namespace marrowcut
{

/// Notifications through org.freedesktop.Notifications on the session bus (Desktop Notifications
/// Specification 1.2). "Permission" is that a server replies; without a bus or a server it is refused at
/// once.
class DesktopNotifications : public QObject, public NotificationCenter
{
    Q_OBJECT
public:
    /// As long as D-Bus waits for a reply: the server may have to be started.
    static constexpr std::chrono::milliseconds busLimit{-1};

    /// desktopEntry: its name without ".desktop", by which the server knows the program. replyLimit: how long
    /// each call waits for the server.
    explicit DesktopNotifications(QString desktopEntry, std::chrono::milliseconds replyLimit = busLimit,
                                  QObject *parent = nullptr);

    void requestAuthorization(std::function<void(bool granted)> deliver) override;
    void add(const NotificationRequest &request) override;
    void whenIdle(const std::function<void()> &then) override;

Q_SIGNALS:
    /// The last pending reply has come.
    void becameIdle();

private:
    void call(const QDBusMessage &message, std::function<void(bool succeeded)> deliver);
    void finishCall(bool succeeded, const std::function<void(bool)> &deliver);

    const QString m_desktopEntry;
    const std::chrono::milliseconds m_replyLimit;
    int m_pendingCalls = 0;
};

} // namespace marrowcut
