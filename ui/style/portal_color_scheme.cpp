#include "ui/style/portal_color_scheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace marrowcut
{

namespace
{

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString schemeKey = QStringLiteral("color-scheme");

/// 0 is no preference, 1 dark, 2 light. Portals wrap the number into one variant or two.
std::optional<bool> darkFrom(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    const uint scheme = value.toUInt();
    return scheme == 0 ? std::nullopt : std::optional(scheme == 1);
}

} // namespace

PortalColorScheme::PortalColorScheme(QObject *parent)
    : QObject(parent)
{
    ask();
}

void PortalColorScheme::ask()
{
    qRegisterMetaType<QDBusVariant>(); // without it the connection below is refused
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) // a call would never finish
        return;
    bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage message =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    message << appearanceGroup << schemeKey;
    m_isAwaited = true;
    const auto watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *finished) {
        takeAnswer(*finished);
        finished->deleteLater();
    });
}

void PortalColorScheme::takeAnswer(const QDBusPendingCall &call)
{
    m_isAwaited = false;
    const QDBusPendingReply<QDBusVariant> reply = call;
    if (!reply.isError())
        set(QVariant::fromValue(reply.value()));
    Q_EMIT answered();
}

void PortalColorScheme::onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group == appearanceGroup && key == schemeKey)
        set(QVariant::fromValue(value));
}

void PortalColorScheme::set(const QVariant &value)
{
    m_dark = darkFrom(value);
    Q_EMIT changed();
}

} // namespace marrowcut
