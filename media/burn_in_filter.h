#pragma once

#include "engine/model/quality_preset.h"

#include <QString>

namespace marrowcut::media
{

/// Makes any text safe inside the single quotes of a drawtext option (text='…', timecode='…') within
/// a filter graph, so that it is drawn as it is and cannot end the quoted value. Every text that
/// comes from outside (names, tags) must pass through here. Ordinary names come out unchanged.
/// Source: FFmpeg filters documentation, "Notes on filtergraph escaping", and measurements.
QString escapeForDrawtext(const QString &text);

/// The same for any other quoted option of a filter, where no expansion takes place.
QString escapeForQuotes(const QString &text);

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

/// The text for ffmpeg's -filter_complex: the first video stream, scaled and with the text drawn into
/// it, as [v], and all audio streams, mixed down and loudness-normalised, as [a] when there are any.
QString buildFilter(const FilterInputs &inputs, const QString &fontFile);

} // namespace marrowcut::media
