#pragma once

#include "engine/model/proxy_job.h"

#include <QDateTime>
#include <QList>
#include <QString>

namespace marrowcut
{

/// The diagnostics report's facts about this moment and this machine.
struct DiagnosticsFacts {
    QDateTime generated;      ///< local time
    QString versionString;    ///< such as "1.0 (1)"
    QString systemVersion;    ///< the operating system's own text
    QString architectureLine; ///< whole, with its label

    static DiagnosticsFacts current();
};

/// The report, without a line feed at its end. Lists the failed ones of the jobs.
QString diagnosticsText(const DiagnosticsFacts &facts, const QList<ProxyJob> &jobs,
                        const QString &ffmpegVersionLine);

/// The first non-empty line of ffmpeg's version output, else "unavailable".
QString ffmpegVersionLine(const QString &standardOutput);

} // namespace marrowcut
