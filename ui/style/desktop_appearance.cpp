#include "ui/style/desktop_appearance.h"

#include "ui/style/portal_appearance.h"

#include <QEventLoop>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPalette>
#include <QPointer>
#include <QQmlEngine>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace marrowcut
{

namespace
{

DesktopAppearance::Choice choiceFromEnvironment()
{
    const QByteArray value = qgetenv("MARROWCUT_COLOR_SCHEME");
    if (value == "dark")
        return DesktopAppearance::Dark;
    return value == "light" ? DesktopAppearance::Light : DesktopAppearance::Desktop;
}

bool platformPaletteIsDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// As the Web Content Accessibility Guidelines define it.
float luminance(const QColor &color)
{
    const auto linear = [](float part) {
        return part <= 0.04045F ? part / 12.92F : std::pow((part + 0.055F) / 1.055F, 2.4F);
    };
    return 0.2126F * linear(color.redF()) + 0.7152F * linear(color.greenF()) +
           0.0722F * linear(color.blueF());
}

float contrast(const QColor &one, const QColor &other)
{
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05F) / (low + 0.05F);
}

} // namespace

DesktopAppearance *DesktopAppearance::instance()
{
    static QPointer<DesktopAppearance> shared;
    if (!shared)
        shared = new DesktopAppearance(qGuiApp);
    return shared;
}

DesktopAppearance *DesktopAppearance::create(QQmlEngine *, QJSEngine *)
{
    QQmlEngine::setObjectOwnership(instance(), QQmlEngine::CppOwnership);
    return instance();
}

DesktopAppearance::DesktopAppearance(QObject *parent)
    : QObject(parent)
    , m_portal(new PortalAppearance(this))
    , m_choice(choiceFromEnvironment())
    , m_dark(wantsDark())
{
    qGuiApp->installEventFilter(this);
    connect(m_portal, &PortalAppearance::changed, this, &DesktopAppearance::update);
}

void DesktopAppearance::awaitDesktop(std::chrono::milliseconds limit)
{
    if (!m_portal->isPending())
        return;
    QEventLoop loop;
    connect(m_portal, &PortalAppearance::replied, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    loop.exec();
}

QString DesktopAppearance::monospaced() const
{
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

void DesktopAppearance::setChoice(Choice choice)
{
    if (m_choice == choice)
        return;
    m_choice = choice;
    Q_EMIT choiceChanged();
    update();
}

QColor DesktopAppearance::legible(QColor color, const QColor &other)
{
    const bool darker = luminance(other) > 0.18F; // which is as far from black as from white
    float lightness = color.lightnessF();
    while (contrast(color, other) < 4.5F && lightness != (darker ? 0.F : 1.F)) {
        lightness = std::clamp(lightness + (darker ? -0.01F : 0.01F), 0.F, 1.F);
        color.setHslF(color.hslHueF(), color.hslSaturationF(), lightness);
    }
    return color;
}

bool DesktopAppearance::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ApplicationPaletteChange:
        update();
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt)
            setShowsMnemonics(event->type() == QEvent::KeyPress);
        break;
    case QEvent::FocusOut: // Alt may be released in another window
        setShowsMnemonics(false);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool DesktopAppearance::wantsDark() const
{
    if (m_choice != Desktop)
        return m_choice == Dark;
    return m_portal->dark().value_or(platformPaletteIsDark());
}

void DesktopAppearance::setShowsMnemonics(bool shows)
{
    if (std::exchange(m_showsMnemonics, shows) != shows)
        Q_EMIT showsMnemonicsChanged();
}

void DesktopAppearance::update()
{
    if (const bool dark = wantsDark(); std::exchange(m_dark, dark) != dark)
        Q_EMIT darkChanged();
    if (const QColor accent = m_portal->accent().value_or(QColor());
        std::exchange(m_accent, accent) != accent)
        Q_EMIT accentChanged();
}

} // namespace marrowcut
