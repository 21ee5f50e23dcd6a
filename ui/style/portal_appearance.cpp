#include "ui/style/portal_appearance.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <array>

namespace marrowcut
{

namespace
{

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");

/// 0 means no preference, 1 dark, 2 light.
std::optional<bool> darkFrom(const QVariant &value)
{
    const uint scheme = value.toUInt();
    return scheme == 0 ? std::nullopt : std::optional(scheme == 1);
}

/// Three numbers from 0 to 1 (sRGB); others mean no preference.
std::optional<QColor> colorFrom(const QVariant &value)
{
    if (value.userType() != qMetaTypeId<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("(ddd)"))
        return {};
    std::array<double, 3> parts = {};
    argument.beginStructure();
    argument >> parts[0] >> parts[1] >> parts[2];
    argument.endStructure();
    if (!std::ranges::all_of(parts, [](double part) { return part >= 0 && part <= 1; }))
        return {};
    return QColor::fromRgbF(float(parts[0]), float(parts[1]), float(parts[2]));
}

} // namespace

PortalAppearance::PortalAppearance(QObject *parent)
    : QObject(parent)
{
    qRegisterMetaType<QDBusVariant>(); // without it the connection below is refused
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) // a call would never finish
        return;
    bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage message = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface,
                                                          QStringLiteral("ReadAll"));
    message << QStringList{appearanceGroup};
    m_isPending = true;
    const auto watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *finished) {
        takeReply(*finished);
        finished->deleteLater();
    });
}

void PortalAppearance::takeReply(const QDBusPendingCallWatcher &call)
{
    m_isPending = false;
    const QDBusMessage reply = call.reply();
    if (reply.type() == QDBusMessage::ReplyMessage && reply.signature() == QStringLiteral("a{sa{sv}}")) {
        const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(reply.arguments().constFirst());
        const QVariantMap settings = groups.value(appearanceGroup);
        for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting)
            take(setting.key(), setting.value());
    }
    Q_EMIT replied();
}

void PortalAppearance::onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group == appearanceGroup)
        take(key, value.variant());
}

void PortalAppearance::take(const QString &key, const QVariant &value)
{
    if (key == QStringLiteral("color-scheme"))
        m_dark = darkFrom(value);
    else if (key == QStringLiteral("accent-color"))
        m_accent = colorFrom(value);
    Q_EMIT changed();
}

} // namespace marrowcut
