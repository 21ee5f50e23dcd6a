#pragma once

#include "engine/model/quality_preset.h"

#include <QString>

namespace marrowcut::media
{

struct FilterInputs {
    QString filename;  ///< the source file's name with its extension
    QString srcTC;     ///< source timecode of the first frame
    QString elapsedTC; ///< elapsed time of the first frame, in the same form
    QString rate;      ///< frame rate as ffprobe prints it
    int audioCount = 0;
    QString fileDate;
    QualityPreset preset;
    bool burnInEnabled = true;
};

/// Width of the proxy's picture in pixels; its height follows from the source's shape.
int proxyWidth(QualityPreset preset);

/// The text for ffmpeg's -filter_complex: the first video stream, scaled and with the text drawn into
/// it, as [v], and all audio streams, mixed down and loudness-normalised, as [a] when there are any.
QString buildFilter(const FilterInputs &inputs, const QString &fontFile);

} // namespace marrowcut::media
