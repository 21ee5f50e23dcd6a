#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// Numbers as the tools and the manifest write them, whatever the user's locale.
namespace marrowcut::media
{

/// The number that the whole text writes in decimal, with an optional sign, point and exponent.
/// Nothing for anything else: white space, "N/A", "inf", "nan", digits out of a double's range.
std::optional<double> decimalNumber(QStringView text);

/// The same for a whole number in base 10.
std::optional<qint64> wholeNumber(QStringView text);

/// The shortest decimal text that reads back to the same finite double, always with a fractional
/// part and never with an exponent: 93.44, 90.0.
QString decimalText(double value);

} // namespace marrowcut::media
