#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace marrowcut
{

class PreferenceStore;

/// An encoding preset, and the remembered choice among them. A value.
class QualityPreset
{
public:
    enum Case { standard, smaller, tiny };

    constexpr QualityPreset(Case presetCase = standard) // implicit: a case is a preset
        : m_case(presetCase)
    {
    }

    static constexpr std::array<Case, 3> allCases = {standard, smaller, tiny};

    /// Nothing for any other text than the exact raw value of a case.
    static std::optional<QualityPreset> fromRawValue(const QString &rawValue);
    QString rawValue() const;
    /// Of all cases, in their order.
    static QStringList rawValues();
    QString id() const { return rawValue(); }

    /// The text that the window shows for the preset.
    QString descriptionText() const;

    /// The preset remembered under "qualityPreset"; standard when none or another text is stored.
    static QualityPreset saved(const PreferenceStore &store);
    static void setSaved(PreferenceStore &store, QualityPreset preset);

    constexpr operator Case() const { return m_case; } // comparison and switch

private:
    Case m_case;
};

} // namespace marrowcut
