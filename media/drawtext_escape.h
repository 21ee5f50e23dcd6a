#pragma once

#include <QString>

namespace marrowcut::media
{

/// Makes any text safe inside the single quotes of a drawtext option (text='…', timecode='…') within
/// a filter graph, so that it is drawn as it is and cannot end the quoted value. Every text that
/// comes from outside (names, tags) must pass through here. Plain words come out unchanged.
/// Source: FFmpeg filters documentation, "Notes on filtergraph escaping", and measurements.
QString escapeForDrawtext(const QString &text);

/// The same for any other quoted option of a filter, where no expansion takes place.
QString escapeForQuotes(const QString &text);

} // namespace marrowcut::media
