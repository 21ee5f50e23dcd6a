#include "ui/style/desktop_color_scheme.h"

#include "ui/style/portal_color_scheme.h"

#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPalette>
#include <QPointer>
#include <QQmlEngine>
#include <QTimer>

namespace marrowcut
{

namespace
{

DesktopColorScheme::Choice choiceFromEnvironment()
{
    const QByteArray value = qgetenv("MARROWCUT_COLOR_SCHEME");
    if (value == "dark")
        return DesktopColorScheme::Dark;
    return value == "light" ? DesktopColorScheme::Light : DesktopColorScheme::Desktop;
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
    , m_portal(new PortalColorScheme(this))
    , m_choice(choiceFromEnvironment())
    , m_dark(wanted())
{
    qGuiApp->installEventFilter(this);
    connect(m_portal, &PortalColorScheme::changed, this, &DesktopColorScheme::update);
}

void DesktopColorScheme::awaitDesktop(std::chrono::milliseconds limit)
{
    if (m_choice != Desktop || !m_portal->isAwaited())
        return;
    QEventLoop loop;
    connect(m_portal, &PortalColorScheme::answered, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    loop.exec();
}

void DesktopColorScheme::setChoice(Choice choice)
{
    if (m_choice == choice)
        return;
    m_choice = choice;
    Q_EMIT choiceChanged();
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
    return m_portal->dark().value_or(platformPaletteIsDark());
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
