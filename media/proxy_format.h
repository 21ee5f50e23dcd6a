#pragma once

#include "engine/model/quality_preset.h"

namespace marrowcut::media
{

/// What a preset means for ffmpeg. Rates are texts of its options.
struct ProxyFormat {
    int width;               ///< pixels; the height follows from the source's aspect ratio
    bool hasLargeText;       ///< drawn in the layout for a small picture
    const char *videoRate;   ///< -b:v
    const char *highestRate; ///< -maxrate
    const char *bufferSize;  ///< -bufsize
    const char *audioRate;   ///< -b:a
};

/// The one place for a preset's values; QualityPreset has its name and description.
constexpr ProxyFormat proxyFormat(QualityPreset preset)
{
    switch (preset) {
    case QualityPreset::standard:
        return {960, false, "2M", "2.8M", "4M", "128k"};
    case QualityPreset::smaller:
        return {720, false, "1.2M", "1.7M", "2.4M", "96k"};
    case QualityPreset::tiny:
        return {480, true, "700k", "1M", "1.4M", "64k"};
    }
    Q_UNREACHABLE();
}

} // namespace marrowcut::media
