#include "ui/style/desktop_color_scheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QPointer>
#include <QQmlEngine>

namespace marrowcut
{

namespace
{

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString schemeKey = QStringLiteral("color-scheme");

DesktopColorScheme::Choice choiceFromEnvironment()
{
    const QByteArray value = qgetenv("MARROWCUT_COLOR_SCHEME");
    if (value == "dark")
        return DesktopColorScheme::Dark;
    return value == "light" ? DesktopColorScheme::Light : DesktopColorScheme::Desktop;
}

/// 0 is no preference, 1 dark, 2 light. Portals wrap the number into one variant or two.
std::optional<bool> darkFromPortal(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    const uint scheme = value.toUInt();
    return scheme == 0 ? std::nullopt : std::optional(scheme == 1);
}

bool platformPaletteIsDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

} // namespace

DesktopColorScheme *DesktopColorScheme::instance()
{
    static QPointer<DesktopColorScheme> shared;
    if (!shared)
        shared = new DesktopColorScheme(qGuiApp);
    return shared;
}

DesktopColorScheme *DesktopColorScheme::create(QQmlEngine *, QJSEngine *)
{
    QQmlEngine::setObjectOwnership(instance(), QQmlEngine::CppOwnership);
    return instance();
}

DesktopColorScheme::DesktopColorScheme(QObject *parent)
    : QObject(parent)
    , m_choice(choiceFromEnvironment())
    , m_dark(wanted())
{
    qGuiApp->installEventFilter(this);
    askPortal();
}

void DesktopColorScheme::setChoice(Choice choice)
{
    if (m_choice == choice)
        return;
    m_choice = choice;
    Q_EMIT choiceChanged();
    update();
}

void DesktopColorScheme::askPortal()
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
    const auto watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *finished) {
        takeReply(*finished);
        finished->deleteLater();
    });
}

void DesktopColorScheme::takeReply(const QDBusPendingCall &call)
{
    const QDBusPendingReply<QDBusVariant> reply = call;
    if (reply.isError())
        return;
    m_portalDark = darkFromPortal(QVariant::fromValue(reply.value()));
    update();
}

void DesktopColorScheme::onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group != appearanceGroup || key != schemeKey)
        return;
    m_portalDark = darkFromPortal(QVariant::fromValue(value));
    update();
}

bool DesktopColorScheme::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        update();
    return QObject::eventFilter(watched, event);
}

bool DesktopColorScheme::wanted() const
{
    if (m_choice != Desktop)
        return m_choice == Dark;
    return m_portalDark.value_or(platformPaletteIsDark());
}

void DesktopColorScheme::update()
{
    const bool dark = wanted();
    if (m_dark == dark)
        return;
    m_dark = dark;
    Q_EMIT darkChanged();
}

} // namespace marrowcut
