#include "media/progress_parsing.h"

#include "media/numbers.h"

#include <QRegularExpression>

namespace marrowcut::media
{

std::optional<double> parseTimeSeconds(const QString &line)
{
    static const QRegularExpression pattern(QStringLiteral("time=(\\d+):(\\d+):(\\d+\\.\\d+)"));
    const QRegularExpressionMatch match = pattern.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    const auto hours = decimalNumber(match.capturedView(1));
    const auto minutes = decimalNumber(match.capturedView(2));
    const auto seconds = decimalNumber(match.capturedView(3));
    if (!hours || !minutes || !seconds)
        return std::nullopt;
    return *hours * 3600 + *minutes * 60 + *seconds;
}

std::optional<double> parseSpeed(const QString &line)
{
    static const QRegularExpression pattern(QStringLiteral("speed=\\s*([\\d.]+)x"));
    const QRegularExpressionMatch match = pattern.match(line);
    return match.hasMatch() ? decimalNumber(match.capturedView(1)) : std::nullopt;
}

std::optional<qint64> parseFrameCount(const QString &line)
{
    static const QRegularExpression pattern(QStringLiteral("^frame=\\s*(\\d+)"));
    const QRegularExpressionMatch match = pattern.match(line);
    return match.hasMatch() ? wholeNumber(match.capturedView(1)) : std::nullopt;
}

std::optional<double> remainingTime(double remainingSeconds, const QString &line)
{
    const auto speed = parseSpeed(line);
    if (!speed || !(*speed > 0))
        return std::nullopt;
    return remainingSeconds / *speed;
}

} // namespace marrowcut::media
