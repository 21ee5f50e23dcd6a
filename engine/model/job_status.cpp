#include "engine/model/job_status.h"

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

} // namespace marrowcut
