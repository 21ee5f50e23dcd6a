#pragma once

#include <QString>

namespace marrowcut
{

/// A remaining time in words: "42s left", "5m left", "1h 7m left". Parts of a unit are dropped. Empty
/// for what is no number of seconds: infinite, not a number, negative or beyond a 64-bit integer.
QString formatETA(double seconds);

} // namespace marrowcut
