#include "media/probe.h"

#include "media/ffmpeg_locator.h"
#include "media/numbers.h"
#include "media/process_runner.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace marrowcut::media
{

namespace
{

/// ffprobe's answers about one clip. A tool that cannot be started answers nothing.
class Query
{
public:
    Query(const QString &source, const std::stop_token &stop)
        : m_source(source)
        , m_stop(stop)
    {
    }

    ProcessRunner::CapturedResult run(const QStringList &options) const
    {
        const QStringList arguments =
            QStringList{QStringLiteral("-v"), QStringLiteral("error")} + options + QStringList{m_source};
        try {
            return ProcessRunner::run(FFmpegLocator::ffprobePath(), arguments, {.stop = m_stop});
        } catch (const ProcessRunner::LaunchError &) {
            return {};
        }
    }

    /// The first line of the answer, trimmed; empty when there is none.
    QString ffprobeValue(const QStringList &options) const
    {
        const QStringList lines = run(options).stdout.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        return lines.isEmpty() ? QString() : lines.first().trimmed();
    }

    QString entry(const QString &name, const QStringList &streams = {}) const
    {
        return ffprobeValue(streams + QStringList{QStringLiteral("-show_entries"), name,
                                                  QStringLiteral("-of"),
                                                  QStringLiteral("default=nw=1:nk=1")});
    }

private:
    const QString &m_source;
    const std::stop_token &m_stop;
};

int countAudioStreams(const Query &query)
{
    const QString answer =
        query
            .run({QStringLiteral("-select_streams"), QStringLiteral("a"), QStringLiteral("-show_entries"),
                  QStringLiteral("stream=index"), QStringLiteral("-of"), QStringLiteral("csv=p=0")})
            .stdout;
    const QStringList lines = answer.split(QLatin1Char('\n'));
    return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                          [](const QString &line) { return !line.trimmed().isEmpty(); }));
}

/// "2024-03-05T14:22:10.000000Z" becomes "2024-03-05 14:22:10".
QString readableDate(QString date)
{
    static const QRegularExpression fractionAndZone(QStringLiteral("\\.\\d+Z$"));
    return date.replace(QLatin1Char('T'), QLatin1Char(' ')).remove(fractionAndZone);
}

QString fileDate(const Query &query)
{
    QString date = query.entry(QStringLiteral("format_tags=modification_date"));
    if (date.isEmpty())
        date = query.entry(QStringLiteral("format_tags=creation_time"));
    return date.isEmpty() ? QStringLiteral("unavailable") : readableDate(date);
}

} // namespace

std::optional<ProbedMetadata> probe(const QString &source, const std::stop_token &stop)
{
    const Query query(source, stop);
    ProbedMetadata meta;
    meta.tc = query.entry(QStringLiteral("format_tags=timecode"));
    if (meta.tc.isEmpty())
        meta.tc = QStringLiteral("00:00:00:00");
    meta.rate = query.entry(QStringLiteral("stream=avg_frame_rate"),
                            {QStringLiteral("-select_streams"), QStringLiteral("v:0")});
    meta.audioCount = countAudioStreams(query);
    meta.duration = decimalNumber(query.entry(QStringLiteral("format=duration"))).value_or(0);
    meta.fileDate = fileDate(query);
    if (meta.rate.isEmpty())
        return std::nullopt;
    return meta;
}

QString probeFailureDetail(const QString &source, const std::stop_token &stop)
{
    const Query query(source, stop);
    const QString complaint =
        query.run({QStringLiteral("-show_format"), QStringLiteral("-show_streams")}).stderr.trimmed();
    return complaint.isEmpty() ? QStringLiteral("ffprobe could not find a valid video stream in this file.")
                               : complaint;
}

} // namespace marrowcut::media
