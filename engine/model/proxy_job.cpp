#include "engine/model/proxy_job.h"

namespace marrowcut
{

QString JobStatus::label() const
{
    switch (m_case) {
    case Case::queued:
        return QStringLiteral("Queued");
    case Case::probing:
        return QStringLiteral("Reading metadata…");
    case Case::encoding:
        return QStringLiteral("Encoding…");
    case Case::done:
        return QStringLiteral("Done");
    case Case::skipped:
        return QStringLiteral("Already done");
    case Case::failed:
        return QStringLiteral("Failed: ") + m_message;
    }
    Q_UNREACHABLE();
}

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
