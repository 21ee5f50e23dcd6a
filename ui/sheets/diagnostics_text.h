#pragma once

#include "engine/model/proxy_job.h"

#include <QDateTime>
#include <QList>
#include <QString>

namespace marrowcut
{

/// What the diagnostics report says of this moment and this machine.
struct DiagnosticsFacts {
    QDateTime generated;      ///< local time
    QString versionString;    ///< such as "1.0 (1)"
    QString systemVersion;    ///< the operating system's own text
    QString architectureLine; ///< whole, with its label

    static DiagnosticsFacts current();
};

/// The report, without a line feed at its end. Of the jobs, those that failed are listed.
QString diagnosticsText(const DiagnosticsFacts &facts, const QList<ProxyJob> &jobs,
                        const QString &ffmpegVersionLine);

/// The first line of what ffmpeg says of its version that is not empty, else "unavailable".
QString ffmpegVersionLine(const QString &standardOutput);

} // namespace marrowcut
