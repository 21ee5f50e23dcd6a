#include "ui/style/desktop_color_scheme.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using marrowcut::DesktopColorScheme;

/// Stands in for the desktop portal, on a message bus of its own.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    explicit FakePortal(const QString &address)
        : m_bus(QDBusConnection::connectToBus(address, QStringLiteral("portal")))
    {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void change(const QString &group, uint scheme)
    {
        Q_EMIT SettingChanged(group, QStringLiteral("color-scheme"), QDBusVariant(scheme));
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        const bool known = group == appearance && key == QStringLiteral("color-scheme");
        return QDBusVariant(QVariant::fromValue(QDBusVariant(known ? 1U : 0U)));
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

public:
    const QString appearance = QStringLiteral("org.freedesktop.appearance");

private:
    QDBusConnection m_bus;
};

class DesktopColorSchemeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qunsetenv("MARROWCUT_COLOR_SCHEME");
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        QVERIFY(m_daemon.waitForReadyRead());
        const QByteArray address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        m_portal = std::make_unique<FakePortal>(QString::fromUtf8(address));
    }

    void followsThePortal()
    {
        DesktopColorScheme *scheme = DesktopColorScheme::instance();
        QVERIFY(!scheme->dark()); // the palette's answer until the portal's is there
        QTRY_VERIFY(scheme->dark());

        QSignalSpy changes(scheme, &DesktopColorScheme::darkChanged);
        m_portal->change(m_portal->appearance, 2);
        QTRY_VERIFY(!scheme->dark());
        m_portal->change(QStringLiteral("org.example.other"), 2);
        m_portal->change(m_portal->appearance, 1);
        QTRY_VERIFY(scheme->dark());
        m_portal->change(m_portal->appearance, 0); // no preference: the palette again
        QTRY_VERIFY(!scheme->dark());
        QCOMPARE(changes.count(), 3);
    }

    void choiceOverridesTheDesktop()
    {
        DesktopColorScheme *scheme = DesktopColorScheme::instance();
        scheme->setChoice(DesktopColorScheme::Dark);
        QVERIFY(scheme->dark());
        scheme->setChoice(DesktopColorScheme::Desktop);
        QVERIFY(!scheme->dark());
    }

    void cleanupTestCase()
    {
        m_portal.reset();
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

private:
    QProcess m_daemon;
    std::unique_ptr<FakePortal> m_portal;
};

QTEST_MAIN(DesktopColorSchemeTest)

#include "tst_desktop_color_scheme.moc"
