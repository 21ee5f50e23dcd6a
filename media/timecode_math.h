#pragma once

#include <QString>

namespace marrowcut::media::TimecodeMath
{

/// "00:00:00:00".
QString zero();

/// Whole frames per second of a frame-rate text as ffprobe prints it: "30000/1001" is 30. Without
/// any number 24; 0 where the rate is unknown ("0/0") or not representable.
qint64 nominalFPS(const QString &rateText);

/// The timecode shifted by a number of seconds at a whole frame rate. Hours run on past 24.
/// Anything but four whole numbers between colons (drop-frame timecode, for one), a rate of 0 and a
/// result that is out of range leave the timecode unchanged.
QString add(const QString &tc, double offsetSeconds, qint64 fps);

} // namespace marrowcut::media::TimecodeMath
