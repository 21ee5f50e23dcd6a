#include "platform/sleep_inhibitor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>

namespace marrowcut
{

/// The inhibition lasts as long as this descriptor is open.
struct SleepInhibitor::Lock {
    QDBusUnixFileDescriptor descriptor;
};

SleepInhibitor::SleepInhibitor(QObject *parent)
    : QObject(parent)
{
}

SleepInhibitor::~SleepInhibitor() = default;

void SleepInhibitor::setHeld(bool held)
{
    m_wanted = held;
    if (!held)
        m_lock.reset();
    else if (!m_lock && !m_awaited)
        request();
}

void SleepInhibitor::request()
{
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return;
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    message << QStringLiteral("idle:sleep") << QStringLiteral("Marrowcut") << QStringLiteral("Making proxies")
            << QStringLiteral("block");
    m_awaited = true;
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_awaited = false;
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *watcher;
        if (m_wanted && reply.isValid())
            m_lock = std::make_unique<Lock>(Lock{reply.value()});
    });
}

} // namespace marrowcut
