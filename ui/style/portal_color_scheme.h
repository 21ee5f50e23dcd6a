#pragma once

#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace marrowcut
{

/// The desktop portal's colour scheme, asked for without waiting and then followed. Main thread.
class PortalColorScheme : public QObject
{
    Q_OBJECT
public:
    explicit PortalColorScheme(QObject *parent = nullptr);

    /// Absent before the first answer, without a portal, and where the desktop has no preference.
    std::optional<bool> dark() const { return m_dark; }
    /// Whether the portal has yet to answer the first question.
    bool isAwaited() const { return m_isAwaited; }

Q_SIGNALS:
    void changed();
    void answered(); ///< the first question, be it with an error

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void takeAnswer(const QDBusPendingCall &call);
    void set(const QVariant &value);

    std::optional<bool> m_dark;
    bool m_isAwaited = false;
};

} // namespace marrowcut
