#include "ui/sheets/diagnostics_text.h"

#include "platform/resources.h"

#include <QStringList>
#include <QSysInfo>

#include <algorithm>

namespace marrowcut
{

namespace
{

QString ownArchitectureLine()
{
    const QString processor = QSysInfo::buildCpuArchitecture();
    if (processor == QStringLiteral("arm64"))
        return QStringLiteral("Architecture: Apple Silicon (arm64)");
    if (processor == QStringLiteral("x86_64"))
        return QStringLiteral("Architecture: Intel (x86_64)");
    return QStringLiteral("Architecture: ") + processor;
}

QStringList factLines(const DiagnosticsFacts &facts, const QString &ffmpegVersionLine)
{
    const QString timestamp = facts.generated.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return {QStringLiteral("Marrowcut diagnostic report"),
            QStringLiteral("Generated: ") + timestamp,
            QString(),
            QStringLiteral("App version: ") + facts.versionString,
            QStringLiteral("macOS: ") + facts.systemVersion,
            facts.architectureLine,
            QStringLiteral("ffmpeg: ") + ffmpegVersionLine,
            QString()};
}

QStringList failedJobLines(const ProxyJob &job)
{
    QStringList lines{QString(), QStringLiteral("- ") + job.fileName(),
                      QStringLiteral("  ") + job.status.label()};
    const QString detail = job.errorDetail.value_or(QString());
    if (detail.isEmpty())
        return lines;
    lines << QStringLiteral("  ---");
    for (const QString &line : detail.split(u'\n', Qt::SkipEmptyParts))
        lines << QStringLiteral("  ") + line;
    return lines;
}

QStringList failedFilesSection(const QList<ProxyJob> &jobs)
{
    QList<ProxyJob> failedJobs;
    std::copy_if(jobs.cbegin(), jobs.cend(), std::back_inserter(failedJobs),
                 [](const ProxyJob &job) { return job.status.isFailed(); });
    if (failedJobs.isEmpty())
        return {QStringLiteral("No failed files this session.")};
    QStringList lines{QStringLiteral("Failed files (%1):").arg(failedJobs.size())};
    for (const ProxyJob &job : failedJobs)
        lines << failedJobLines(job);
    return lines;
}

} // namespace

DiagnosticsFacts DiagnosticsFacts::current()
{
    return {.generated = QDateTime::currentDateTime(),
            .versionString = versionText(),
            .systemVersion =
                QStringLiteral("%1 (%2 %3)")
                    .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion()),
            .architectureLine = ownArchitectureLine()};
}

QString diagnosticsText(const DiagnosticsFacts &facts, const QList<ProxyJob> &jobs,
                        const QString &ffmpegVersionLine)
{
    return (factLines(facts, ffmpegVersionLine) + failedFilesSection(jobs)).join(u'\n');
}

QString ffmpegVersionLine(const QString &standardOutput)
{
    const QStringList lines = standardOutput.split(u'\n', Qt::SkipEmptyParts);
    return lines.isEmpty() ? QStringLiteral("unavailable") : lines.first();
}

} // namespace marrowcut
