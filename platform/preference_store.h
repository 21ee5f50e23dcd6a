#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace marrowcut
{

/// The per-user store of remembered choices: texts under keys. Main thread. A store that cannot be
/// read is empty, one that cannot be written forgets; neither is an error.
class PreferenceStore
{
public:
    virtual ~PreferenceStore() = default;
    virtual std::optional<QString> value(const QString &key) const = 0;
    virtual void setValue(const QString &key, const QString &value) = 0;
};

/// Lives as long as the program: for tests, and where a choice must not be remembered.
class MemoryPreferenceStore : public PreferenceStore
{
public:
    std::optional<QString> value(const QString &key) const override
    {
        return m_values.contains(key) ? std::optional(m_values[key]) : std::nullopt;
    }
    void setValue(const QString &key, const QString &value) override { m_values[key] = value; }

private:
    QHash<QString, QString> m_values;
};

/// The user's own: an INI file marrowcut/marrowcut.ini in the configuration folder.
class SettingsPreferenceStore : public PreferenceStore
{
public:
    std::optional<QString> value(const QString &key) const override;
    void setValue(const QString &key, const QString &value) override;
};

} // namespace marrowcut
