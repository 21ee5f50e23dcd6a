#include "ui/style/desktop_color_scheme.h"

#include "support/private_bus.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

using namespace marrowcut;

/// Stands in for the desktop portal. It answers when it is told to.
class FakePortal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    const QString appearance = QStringLiteral("org.freedesktop.appearance");

    explicit FakePortal(const QDBusConnection &bus)
        : m_bus(bus)
    {
    }

    bool isAsked() const { return m_question.type() != QDBusMessage::InvalidMessage; }
    void answer(uint scheme)
    {
        const QDBusVariant inner(scheme);
        m_bus.send(m_question.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    }
    void change(const QString &group, uint scheme)
    {
        Q_EMIT SettingChanged(group, QStringLiteral("color-scheme"), QDBusVariant(scheme));
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        if (group == appearance && key == QStringLiteral("color-scheme"))
            m_question = message();
        setDelayedReply(true);
        return QDBusVariant();
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    QDBusConnection m_bus;
    QDBusMessage m_question;
};

class DesktopColorSchemeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qunsetenv("MARROWCUT_COLOR_SCHEME");
        QVERIFY(m_bus.serve(QStringLiteral("org.freedesktop.portal.Desktop"),
                            QStringLiteral("/org/freedesktop/portal/desktop"), &m_portal));
    }

    void theFirstAnswerIsAwaitedForAWhile()
    {
        DesktopColorScheme *scheme = DesktopColorScheme::instance();
        scheme->awaitDesktop(std::chrono::milliseconds(1)); // in vain
        QVERIFY(!scheme->dark());                           // the palette's answer
        QTRY_VERIFY(m_portal.isAsked());
        m_portal.answer(1);
        scheme->awaitDesktop(std::chrono::hours(1));
        QVERIFY(scheme->dark());
        scheme->awaitDesktop(std::chrono::hours(1)); // nothing is left to wait for
    }

    void changesAreFollowed()
    {
        DesktopColorScheme *scheme = DesktopColorScheme::instance();
        QSignalSpy changes(scheme, &DesktopColorScheme::darkChanged);
        m_portal.change(m_portal.appearance, 2);
        QTRY_VERIFY(!scheme->dark());
        m_portal.change(QStringLiteral("org.example.other"), 2);
        m_portal.change(m_portal.appearance, 1);
        QTRY_VERIFY(scheme->dark());
        m_portal.change(m_portal.appearance, 0); // no preference: the palette again
        QTRY_VERIFY(!scheme->dark());
        QCOMPARE(changes.count(), 3);
    }

private:
    PrivateBus m_bus;
    FakePortal m_portal{m_bus.server()};
};

QTEST_MAIN(DesktopColorSchemeTest)

#include "tst_desktop_color_scheme.moc"
