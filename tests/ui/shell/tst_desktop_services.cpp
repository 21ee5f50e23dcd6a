#include "platform/desktop_notifications.h"
#include "platform/file_viewer.h"
#include "platform/taskbar_progress.h"

#include "support/private_bus.h"

#include <QDBusContext>
#include <QDBusMessage>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace marrowcut;
using namespace Qt::StringLiterals;

/// A file viewer, on a message bus of the test's own.
class FakeFileManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shown;
    bool refuses = false;

public Q_SLOTS:
    void ShowItems(const QStringList &uris, const QString &)
    {
        shown += uris;
        if (refuses)
            sendErrorReply(QDBusError::Failed);
    }
};

/// A notification server that replies when it is told to, as one that has to be started first.
class SlowNotificationServer : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    QList<QDBusMessage> pending;

public Q_SLOTS:
    QString GetServerInformation()
    {
        setDelayedReply(true);
        pending.append(message());
        return QString();
    }
};

class TaskbarListener : public QObject
{
    Q_OBJECT
public:
    QStringList updates;

public Q_SLOTS:
    void update(const QString &application, const QVariantMap &properties)
    {
        updates.append(u"%1 %2 %3"_s.arg(application)
                           .arg(properties.value(u"progress"_s).toDouble())
                           .arg(properties.value(u"progress-visible"_s).toBool()));
    }
};

class DesktopServicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notificationServerMayTakeItsTime()
    {
        SlowNotificationServer server;
        QVERIFY(
            m_bus.serve(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s, &server));
        DesktopNotifications patient(u"marrowcut"_s);
        DesktopNotifications impatient(u"marrowcut"_s, std::chrono::milliseconds(20));
        std::optional<bool> granted;
        std::optional<bool> refused;
        patient.requestAuthorization([&granted](bool reply) { granted = reply; });
        impatient.requestAuthorization([&refused](bool reply) { refused = reply; });
        QTRY_COMPARE(refused, false);
        QTRY_COMPARE(server.pending.size(), 2);
        QCOMPARE(granted, std::nullopt);
        for (const QDBusMessage &call : server.pending)
            m_bus.server().send(call.createReply(u"server"_s));
        QTRY_COMPARE(granted, true);
        bool isIdle = false;
        patient.whenIdle([&isIdle] { isIdle = true; });
        QVERIFY(isIdle);
    }

    void revealing()
    {
        QList<QUrl> opened;
        QVERIFY(QDir(m_clips.path()).mkdir(u"Shoot #3"_s));
        DesktopFileViewer viewer([&opened](const QUrl &folder) { opened.append(folder); });
        const QUrl folder = QUrl::fromLocalFile(m_clips.filePath(u"Shoot #3"_s));

        viewer.reveal(folder); // nobody is there to answer
        QTRY_COMPARE(opened, QList{folder});

        FakeFileManager fileManager;
        QVERIFY(
            m_bus.serve(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s, &fileManager));
        viewer.reveal(folder);
        QTRY_COMPARE(fileManager.shown, QStringList{QString::fromLatin1(folder.toEncoded())});
        QVERIFY(fileManager.shown.first().endsWith(u"Shoot%20%233"_s));
        QCOMPARE(opened.size(), 1);
        QTRY_VERIFY(viewer.children().isEmpty()); // the reply has come

        fileManager.refuses = true;
        for (int press = 0; press < 4; ++press)
            viewer.reveal(folder); // only the first while its reply is pending
        QTRY_COMPARE(opened.size(), 2);
        fileManager.refuses = false;
        viewer.reveal(folder);
        QTRY_COMPARE(fileManager.shown.size(), 3);
        QTRY_VERIFY(viewer.children().isEmpty());
        QCOMPARE(opened.size(), 2);

        const QString missing = u"/marrowcut_proxies/none"_s;
        viewer.reveal(QUrl::fromLocalFile(folder.toLocalFile() + missing));
        QCOMPARE(opened.size(), 3);
        QCOMPARE(opened.last(), folder);
        viewer.reveal(QUrl::fromLocalFile(missing));
        QCOMPARE(opened.last(), QUrl::fromLocalFile(u"/"_s));
    }

    void taskbarProgress()
    {
        TaskbarListener listener;
        QVERIFY(m_bus.server().connect(QString(), QString(), u"com.canonical.Unity.LauncherEntry"_s,
                                       u"Update"_s, &listener, SLOT(update(QString, QVariantMap))));
        TaskbarProgress progress(u"marrowcut"_s);
        progress.show(std::nullopt);
        progress.show(0.25);
        progress.show(0.251);
        progress.show(std::nullopt);
        QTRY_COMPARE(listener.updates, (QStringList{u"application://marrowcut.desktop 0.25 1"_s,
                                                    u"application://marrowcut.desktop 0 0"_s}));
    }

private:
    PrivateBus m_bus;
    QTemporaryDir m_clips;
};

QTEST_GUILESS_MAIN(DesktopServicesTest)
#include "tst_desktop_services.moc"
