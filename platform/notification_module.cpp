// The desktop's notifications as a module, for the program that seldom wants them: D-Bus alone would make
// its start half as long again.

#include "platform/desktop_notifications.h"

extern "C" Q_DECL_EXPORT marrowcut::NotificationCenter *marrowcutNotificationCenter()
{
    return new marrowcut::DesktopNotifications(QStringLiteral("marrowcut"));
}
