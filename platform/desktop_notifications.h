#pragma once

#include "platform/notification_center.h"

#include <QObject>

class QDBusMessage;

namespace marrowcut
{

/// Notifications through org.freedesktop.Notifications on the session bus
/// (Desktop Notifications Specification 1.2). "Permission" is that a server answers: without a bus
/// or without a server it is refused, at once.
class DesktopNotifications : public QObject, public NotificationCenter
{
    Q_OBJECT
public:
    /// The desktop entry's name, without ".desktop", tells the server whose notification it is.
    explicit DesktopNotifications(QString desktopEntry, QObject *parent = nullptr);

    void requestAuthorization(std::function<void(bool granted)> answer) override;
    void add(const NotificationRequest &request) override;
    void whenIdle(std::function<void()> then) override;

Q_SIGNALS:
    /// The last awaited answer has come.
    void becameIdle();

private:
    void call(const QDBusMessage &message, std::function<void(bool succeeded)> answer);
    void finishCall(bool succeeded, const std::function<void(bool)> &answer);

    QString m_desktopEntry;
    int m_pendingCalls = 0;
};

} // namespace marrowcut
