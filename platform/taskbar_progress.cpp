#include "platform/taskbar_progress.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <utility>

namespace marrowcut
{

TaskbarProgress::TaskbarProgress(const QString &desktopEntry)
    : m_application(QStringLiteral("application://%1.desktop").arg(desktopEntry))
{
}

void TaskbarProgress::show(std::optional<double> fraction)
{
    const auto percent = fraction ? std::optional(static_cast<int>(*fraction * 100)) : std::nullopt;
    if (std::exchange(m_percent, percent) == percent)
        return;
    QDBusMessage update = QDBusMessage::createSignal(QStringLiteral("/marrowcut"),
                                                     QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                                     QStringLiteral("Update"));
    update << m_application
           << QVariantMap{{QStringLiteral("progress"), percent.value_or(0) / 100.0},
                          {QStringLiteral("progress-visible"), percent.has_value()}};
    QDBusConnection::sessionBus().send(update);
}

} // namespace marrowcut
