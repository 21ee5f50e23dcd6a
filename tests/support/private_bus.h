#pragma once

#include <QDBusConnection>
#include <QProcess>

namespace marrowcut
{

/// A message bus of the test's own, which this process takes for the session's and the system's. Made before
/// the process first speaks to either.
class PrivateBus
{
public:
    PrivateBus()
    {
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        if (!m_daemon.waitForReadyRead())
            qFatal("no dbus-daemon");
        const QByteArray address = m_daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
        m_server = QDBusConnection::connectToBus(QString::fromUtf8(address), serverName);
    }
    ~PrivateBus()
    {
        QDBusConnection::disconnectFromBus(serverName);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(PrivateBus)

    /// A second connection, as of another program.
    QDBusConnection server() const { return m_server; }
    /// Makes an object's slots and signals that program's.
    bool serve(const QString &service, const QString &path, QObject *object)
    {
        return m_server.registerObject(path, object,
                                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) &&
               m_server.registerService(service);
    }

private:
    const QString serverName = QStringLiteral("server");
    QProcess m_daemon;
    QDBusConnection m_server{QString()};
};

} // namespace marrowcut
