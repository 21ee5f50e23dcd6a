#pragma once

#include <QString>

#include <optional>

/// Reads ffmpeg's periodic statistics lines. Pure.
namespace marrowcut::media
{

/// The position in the output, in seconds: "time=01:02:03.50" is 3723.5. Nothing for "N/A", for a
/// negative time and for lines that are no statistics.
std::optional<double> parseTimeSeconds(const QString &line);

/// How many times faster than real time: "speed= 1.5x" is 1.5.
std::optional<double> parseSpeed(const QString &line);

/// The number of frames written so far, from a line that begins with "frame=".
std::optional<qint64> parseFrameCount(const QString &line);

/// Seconds left when remainingSeconds of footage go on at the line's speed; nothing when the line
/// reports no speed above 0.
std::optional<double> remainingTime(double remainingSeconds, const QString &line);

} // namespace marrowcut::media
