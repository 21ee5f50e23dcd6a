#include "engine/model/quality_preset.h"

#include "platform/preference_store.h"

#include <cmath>

namespace marrowcut
{

namespace
{

QString preferenceKey()
{
    return QStringLiteral("qualityPreset");
}

double megabytesPerMinute(QualityPreset preset)
{
    switch (preset) {
    case QualityPreset::standard:
        return 15.5859375;
    case QualityPreset::smaller:
        return 9.4921875;
    case QualityPreset::tiny:
        return 5.595703125;
    }
    Q_UNREACHABLE();
}

} // namespace

std::optional<QualityPreset> QualityPreset::fromRawValue(const QString &rawValue)
{
    for (const QualityPreset preset : allCases) {
        if (preset.rawValue() == rawValue)
            return preset;
    }
    return std::nullopt;
}

QString QualityPreset::rawValue() const
{
    switch (m_case) {
    case standard:
        return QStringLiteral("standard");
    case smaller:
        return QStringLiteral("smaller");
    case tiny:
        return QStringLiteral("tiny");
    }
    Q_UNREACHABLE();
}

QStringList QualityPreset::rawValues()
{
    QStringList values;
    for (const QualityPreset preset : allCases)
        values.append(preset.rawValue());
    return values;
}

QString QualityPreset::descriptionText() const
{
    const auto wholeMegabytes = static_cast<int>(std::round(megabytesPerMinute(*this)));
    QString text =
        QStringLiteral("Exports files that are about %1 megabytes per minute.").arg(wholeMegabytes);
    if (m_case == tiny)
        text +=
            QStringLiteral(" Text is harder to read at this size; use this only if file size matters more "
                           "than a crisp burn-in.");
    return text;
}

QualityPreset QualityPreset::saved(const PreferenceStore &store)
{
    return fromRawValue(store.value(preferenceKey()).value_or(QString())).value_or(standard);
}

void QualityPreset::setSaved(PreferenceStore &store, QualityPreset preset)
{
    store.setValue(preferenceKey(), preset.rawValue());
}

} // namespace marrowcut
