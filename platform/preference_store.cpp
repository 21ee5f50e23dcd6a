#include "platform/preference_store.h"

#include <QSettings>

namespace marrowcut
{

namespace
{

QSettings userSettings()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("marrowcut"),
                     QStringLiteral("marrowcut"));
}

} // namespace

std::optional<QString> SettingsPreferenceStore::value(const QString &key) const
{
    const QVariant stored = userSettings().value(key);
    return stored.typeId() == QMetaType::QString ? std::optional(stored.toString()) : std::nullopt;
}

void SettingsPreferenceStore::setValue(const QString &key, const QString &value)
{
    userSettings().setValue(key, value);
}

} // namespace marrowcut
