#include "media/timecode_math.h"

#include "media/numbers.h"

#include <QList>
#include <QStringList>

#include <cmath>
#include <optional>

namespace marrowcut::media::TimecodeMath
{

namespace
{

std::optional<qint64> nearestWhole(double value)
{
    // 2^63 is exact as a double: everything below it fits.
    constexpr double limit = 9223372036854775808.0;
    const double rounded = std::round(value);
    if (!(rounded > -limit && rounded < limit))
        return std::nullopt;
    return static_cast<qint64>(rounded);
}

/// (h * 3600 + m * 60 + s) * fps + f + offset; nothing on overflow.
std::optional<qint64> totalFrames(const QList<qint64> &fields, qint64 fps, qint64 offset)
{
    qint64 hours = 0;
    qint64 minutes = 0;
    qint64 total = 0;
    const bool overflow =
        __builtin_mul_overflow(fields[0], 3600, &hours) || __builtin_mul_overflow(fields[1], 60, &minutes) ||
        __builtin_add_overflow(hours, minutes, &total) || __builtin_add_overflow(total, fields[2], &total) ||
        __builtin_mul_overflow(total, fps, &total) || __builtin_add_overflow(total, fields[3], &total) ||
        __builtin_add_overflow(total, offset, &total);
    return overflow ? std::nullopt : std::optional(total);
}

/// The parts of a text that are numbers.
template <typename Number>
QList<Number> numbersIn(const QString &text, char separator, std::optional<Number> (*parse)(QStringView))
{
    QList<Number> numbers;
    for (const QString &part : text.split(QLatin1Char(separator), Qt::SkipEmptyParts)) {
        if (const auto number = parse(part))
            numbers.append(*number);
    }
    return numbers;
}

} // namespace

QString zero()
{
    return QStringLiteral("00:00:00:00");
}

qint64 nominalFPS(const QString &rateText)
{
    const QList<double> numbers = numbersIn(rateText, '/', decimalNumber);
    if (numbers.isEmpty())
        return 24;
    const bool isFraction = numbers.size() == 2 && numbers[1] != 0;
    const double rate = isFraction ? numbers[0] / numbers[1] : numbers[0];
    return nearestWhole(rate).value_or(0);
}

QString add(const QString &tc, double offsetSeconds, qint64 fps)
{
    const QList<qint64> fields = numbersIn(tc, ':', wholeNumber);
    // Above this rate an hour of frames is no number that the division below could use.
    constexpr qint64 highestRate = 1'000'000'000;
    if (fields.size() != 4 || fps <= 0 || fps > highestRate)
        return tc;
    const auto offset = nearestWhole(static_cast<double>(fps) * offsetSeconds);
    const auto total = offset ? totalFrames(fields, fps, *offset) : std::nullopt;
    if (!total)
        return tc;

    const qint64 perMinute = fps * 60;
    const qint64 perHour = perMinute * 60;
    const auto field = [](qint64 number) { return QString::asprintf("%02lld", number); };
    return QStringList{field(*total / perHour), field(*total % perHour / perMinute),
                       field(*total % perMinute / fps), field(*total % fps)}
        .join(QLatin1Char(':'));
}

} // namespace marrowcut::media::TimecodeMath
