#pragma once

#include <QColor>
#include <QDBusVariant>
#include <QObject>

#include <optional>

class QDBusPendingCallWatcher;

namespace marrowcut
{

/// The desktop portal's appearance settings, queried without blocking and then followed. Main thread only.
class PortalAppearance : public QObject
{
    Q_OBJECT
public:
    explicit PortalAppearance(QObject *parent = nullptr);

    /// Absent before the first reply, without a portal, and where the desktop has no preference; so is
    /// accent().
    std::optional<bool> dark() const { return m_dark; }
    std::optional<QColor> accent() const { return m_accent; }
    /// Whether the reply to the query is still to come.
    bool isPending() const { return m_isPending; }

Q_SIGNALS:
    void changed();
    void replied(); ///< the query has ended, also with an error

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void takeReply(const QDBusPendingCallWatcher &call);
    void take(const QString &key, const QVariant &value);

    std::optional<bool> m_dark;
    std::optional<QColor> m_accent;
    bool m_isPending = false;
};

} // namespace marrowcut
