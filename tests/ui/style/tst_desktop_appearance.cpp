#include "ui/style/desktop_appearance.h"

#include "support/private_bus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

using namespace marrowcut;
using namespace Qt::StringLiterals;

using Settings = QMap<QString, QVariantMap>;

/// Three numbers from 0 to 1, as the portal sends a colour.
struct Color {
    double red, green, blue;
};
Q_DECLARE_METATYPE(Color)

QDBusArgument &operator<<(QDBusArgument &argument, const Color &color)
{
    argument.beginStructure();
    argument << color.red << color.green << color.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Color &)
{
    return argument;
}

/// Stands in for the desktop portal. It replies when it is told to.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    const QString appearance = u"org.freedesktop.appearance"_s;

    explicit FakePortal(const QDBusConnection &bus)
        : m_bus(bus)
    {
    }

    bool isQueried() const { return m_query.type() != QDBusMessage::InvalidMessage; }
    void reply(uint scheme, const Color &accent)
    {
        const Settings settings{{appearance,
                                 {{u"color-scheme"_s, scheme},
                                  {u"accent-color"_s, QVariant::fromValue(accent)},
                                  {u"contrast"_s, 0U}}}};
        m_bus.send(m_query.createReply(QVariant::fromValue(settings)));
    }
    void change(const QString &group, const char *key, const QVariant &value)
    {
        Q_EMIT SettingChanged(group, QString::fromLatin1(key), QDBusVariant(value));
    }

public Q_SLOTS:
    void ReadAll(const QStringList &groups, const QDBusMessage &message)
    {
        if (groups == QStringList{appearance})
            m_query = message;
        message.setDelayedReply(true);
    }

Q_SIGNALS:
    void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    QDBusConnection m_bus;
    QDBusMessage m_query;
};

class DesktopAppearanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qunsetenv("MARROWCUT_COLOR_SCHEME");
        qDBusRegisterMetaType<Color>();
        qDBusRegisterMetaType<Settings>();
        QVERIFY(m_bus.serve(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                            &m_portal));
    }

    void theFirstReplyIsAwaitedForAWhile()
    {
        DesktopAppearance *appearance = DesktopAppearance::instance();
        appearance->awaitDesktop(std::chrono::milliseconds(1)); // in vain
        QVERIFY(!appearance->dark());                           // from the palette
        QVERIFY(!appearance->accent().isValid());
        QTRY_VERIFY(m_portal.isQueried());
        m_portal.reply(1, {1, 0.5, 0});
        appearance->awaitDesktop(std::chrono::hours(1));
        QVERIFY(appearance->dark());
        QCOMPARE(appearance->accent().name(), u"#ff8000"_s);
        appearance->awaitDesktop(std::chrono::hours(1)); // nothing is left to wait for
    }

    void changesAreFollowed()
    {
        DesktopAppearance *appearance = DesktopAppearance::instance();
        QSignalSpy changes(appearance, &DesktopAppearance::darkChanged);
        const char *scheme = "color-scheme";
        m_portal.change(m_portal.appearance, scheme, 2U);
        QTRY_VERIFY(!appearance->dark());
        m_portal.change(u"org.example.other"_s, scheme, 2U);
        m_portal.change(m_portal.appearance, scheme, 1U);
        QTRY_VERIFY(appearance->dark());
        m_portal.change(m_portal.appearance, scheme, 0U); // no preference: the palette again
        QTRY_VERIFY(!appearance->dark());
        QCOMPARE(changes.count(), 3);

        const auto setAccent = [this](const QVariant &value) {
            m_portal.change(m_portal.appearance, "accent-color", value);
        };
        setAccent(QVariant::fromValue(Color{0, 1, 0}));
        QTRY_COMPARE(appearance->accent().name(), u"#00ff00"_s);
        setAccent(u"green"_s); // not as promised
        QTRY_VERIFY(!appearance->accent().isValid());
        setAccent(QVariant::fromValue(Color{0, 0, 1}));
        QTRY_VERIFY(appearance->accent().isValid());
        setAccent(QVariant::fromValue(Color{-1, -1, -1})); // no preference
        QTRY_VERIFY(!appearance->accent().isValid());
    }

private:
    PrivateBus m_bus;
    FakePortal m_portal{m_bus.server()};
};

QTEST_MAIN(DesktopAppearanceTest)

#include "tst_desktop_appearance.moc"
