#include "reporter.h"

#include "program_exit.h"

#include "engine/failure_advice.h"
#include "engine/model/output_paths.h"
#include "engine/queue_summary.h"
#include "platform/outside_text.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>

#include <cmath>
#include <cstdio>

namespace marrowcut::cli
{

namespace
{

constexpr int formatVersion = 2;

void write(const QString &event, QJsonObject fields)
{
    fields.insert(QStringLiteral("v"), formatVersion);
    fields.insert(QStringLiteral("event"), event);
    const QString json = QString::fromUtf8(QJsonDocument(fields).toJson(QJsonDocument::Compact));
    const QByteArray line = printableJson(json).toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout); // a reader of the pipe waits for this line
}

QJsonObject clipFields(const ProxyJob &job)
{
    return {{QStringLiteral("clip"), job.sourceURL.toLocalFile()}};
}

QJsonObject proxyFields(const ProxyJob &job)
{
    QJsonObject fields = clipFields(job);
    fields.insert(QStringLiteral("proxy"), OutputPaths::forSource(job.sourceURL).finalOutput);
    return fields;
}

QJsonValue valueOrNull(const QJsonValue &value, bool isKnown)
{
    return isKnown ? value : QJsonValue::Null;
}

QJsonValue probeValue(const std::optional<media::ProbedMetadata> &meta)
{
    if (!meta)
        return QJsonValue::Null;
    return QJsonObject{
        {QStringLiteral("timecode"), valueOrNull(meta->tc, meta->hasTimecodeTag)},
        {QStringLiteral("frameRate"), meta->rate},
        {QStringLiteral("durationSeconds"), valueOrNull(meta->duration, meta->duration > 0)},
        {QStringLiteral("audioStreams"), meta->audioCount},
        {QStringLiteral("fileDate"), valueOrNull(meta->fileDate, meta->hasFileDate)},
    };
}

/// A job that ended, done or failed. The manifest line is null for one that was skipped.
void writeEnd(const ProxyJob &job, const QJsonValue &manifestLine,
              const std::optional<media::ProbedMetadata> &meta)
{
    const bool failed = job.status.isFailed();
    QJsonObject fields = failed ? clipFields(job) : proxyFields(job);
    if (failed) {
        fields.insert(QStringLiteral("message"), job.status.message());
        fields.insert(QStringLiteral("detail"), job.errorDetail.value_or(QString()));
        fields.insert(QStringLiteral("advice"), failureAdvice(job));
    } else {
        fields.insert(QStringLiteral("encoded"), !manifestLine.isNull());
    }
    fields.insert(QStringLiteral("manifest"), manifestLine);
    fields.insert(QStringLiteral("probe"), probeValue(meta));
    write(failed ? QStringLiteral("failed") : QStringLiteral("done"), fields);
}

double rounded(double number)
{
    return std::round(number * 10000) / 10000;
}

} // namespace

void JsonReporter::refused(const RefusedItem &item)
{
    const QString text = refusalText(item); // once: it can read all subfolders
    printError(QStringLiteral("%1: %2").arg(item.path, text));
    ++m_refusedCount;
    const char *reason = QMetaEnum::fromType<RefusedItem::Reason>().valueToKey(int(item.reason));
    write(QStringLiteral("refused"), {{QStringLiteral("item"), item.path},
                                      {QStringLiteral("reason"), QLatin1String(reason)},
                                      {QStringLiteral("text"), text},
                                      {QStringLiteral("failure"), isFailure(item.reason)}});
}

void JsonReporter::queued(const ProxyJob &job)
{
    QJsonObject fields = proxyFields(job);
    fields.insert(QStringLiteral("burnIn"), job.burnInEnabled);
    write(QStringLiteral("queued"), fields);
}

void JsonReporter::waiting(const ProxyJob &job)
{
    Reporter::waiting(job);
    write(QStringLiteral("waiting"), clipFields(job));
}

void JsonReporter::statusChanged(const ProxyJob &job)
{
    Reporter::statusChanged(job);
    if (job.status == JobStatus::skipped()) { // done and failed come once the manifest has their line
        writeEnd(job, QJsonValue::Null, std::nullopt);
    } else if (job.status.isProbing() || job.status.isEncoding()) {
        QJsonObject fields = clipFields(job);
        fields.insert(QStringLiteral("status"),
                      job.status.isProbing() ? QStringLiteral("probing") : QStringLiteral("encoding"));
        write(QStringLiteral("status"), fields);
    }
}

void JsonReporter::progressed(const ProxyJob &runningJob, const QList<ProxyJob> &jobs)
{
    if (!runningJob.status.isEncoding())
        return;
    QJsonObject fields = clipFields(runningJob);
    fields.insert(QStringLiteral("progress"), rounded(runningJob.progress));
    fields.insert(QStringLiteral("overall"), rounded(QueueSummary::of(jobs).overallProgress));
    const std::optional<double> &eta = runningJob.etaSeconds;
    fields.insert(QStringLiteral("remainingSeconds"), valueOrNull(rounded(eta.value_or(0)), eta.has_value()));
    write(QStringLiteral("progress"), fields);
}

void JsonReporter::recorded(const ProxyJob &job, const QString &manifestLine,
                            const std::optional<media::ProbedMetadata> &meta)
{
    writeEnd(job, manifestLine.chopped(1), meta); // without the line feed
}

void JsonReporter::finished(const QList<ProxyJob> &jobs)
{
    const QueueSummary summary = QueueSummary::of(jobs);
    write(QStringLiteral("summary"), {{QStringLiteral("clips"), qint64(summary.jobCount)},
                                      {QStringLiteral("done"), qint64(summary.doneCount)},
                                      {QStringLiteral("failed"), qint64(summary.failedCount)},
                                      {QStringLiteral("refused"), m_refusedCount}});
}

void JsonReporter::interrupted()
{
    write(QStringLiteral("interrupted"), {});
}

} // namespace marrowcut::cli
