#include "engine/model/proxy_job.h"

namespace marrowcut
{

QString ProxyJob::remainingTimeText() const
{
    const bool isWorthShowing = status.isEncoding() && etaSeconds.value_or(0) > 1.0;
    return isWorthShowing ? formatETA(*etaSeconds) : QString();
}

QString formatETA(double seconds)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (!(seconds > -1 && seconds < limit))
        return QString();
    const auto whole = static_cast<qint64>(seconds);
    if (whole < 60)
        return QStringLiteral("%1s left").arg(whole);
    const qint64 minutes = whole / 60;
    if (whole < 3600)
        return QStringLiteral("%1m left").arg(minutes);
    return QStringLiteral("%1h %2m left").arg(whole / 3600).arg(minutes % 60);
}

} // namespace marrowcut
