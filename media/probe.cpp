#include "media/probe.h"

#include "media/ffmpeg_locator.h"
#include "media/numbers.h"
#include "media/process_runner.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace marrowcut::media
{

namespace
{

QString textOr(const QString &text, const QString &fallback)
{
    return text.isEmpty() ? fallback : text;
}

int countFilledLines(const QString &answer)
{
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

    /// Values of the named entry, of the container or of the selected streams.
    QString entry(const QString &name, const QString &streams = {},
                  const QString &format = plainValues()) const
    {
        QStringList options;
        if (!streams.isEmpty())
            options = {QStringLiteral("-select_streams"), streams};
        options += {QStringLiteral("-show_entries"), name, QStringLiteral("-of"), format};
        return run(options).stdout;
    }

private:
    static QString plainValues() { return QStringLiteral("default=nw=1:nk=1"); }

    const QString &m_source;
    const std::stop_token &m_stop;
};

/// A pipe or a device, which ffprobe would wait for without end.
bool isNoFile(const QString &source)
{
    const QFileInfo info(source);
    return info.exists() && !info.isFile() && !info.isDir();
}

} // namespace

QString firstLine(const QString &answer)
{
    const QStringList lines = answer.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.isEmpty() ? QString() : lines.first().trimmed();
}

std::optional<ProbedMetadata> metadataFrom(const ProbeAnswers &answers)
{
    ProbedMetadata meta;
    meta.tc = textOr(firstLine(answers.timecode), QStringLiteral("00:00:00:00"));
    meta.rate = firstLine(answers.frameRate);
    meta.audioCount = countFilledLines(answers.audioStreams);
    meta.duration = decimalNumber(firstLine(answers.duration)).value_or(0);
    const QString date = textOr(firstLine(answers.modificationDate), firstLine(answers.creationDate));
    meta.fileDate = textOr(readableDate(date), QStringLiteral("unavailable"));
    if (meta.rate.isEmpty())
        return std::nullopt;
    return meta;
}

std::optional<ProbedMetadata> probe(const QString &source, const std::stop_token &stop)
{
    if (isNoFile(source))
        return std::nullopt;
    const Query query(source, stop);
    ProbeAnswers answers;
    answers.timecode = query.entry(QStringLiteral("format_tags=timecode"));
    answers.frameRate = query.entry(QStringLiteral("stream=avg_frame_rate"), QStringLiteral("v:0"));
    answers.audioStreams =
        query.entry(QStringLiteral("stream=index"), QStringLiteral("a"), QStringLiteral("csv=p=0"));
    answers.duration = query.entry(QStringLiteral("format=duration"));
    answers.modificationDate = query.entry(QStringLiteral("format_tags=modification_date"));
    if (firstLine(answers.modificationDate).isEmpty())
        answers.creationDate = query.entry(QStringLiteral("format_tags=creation_time"));
    return metadataFrom(answers);
}

QString probeFailureDetail(const QString &source, const std::stop_token &stop)
{
    if (isNoFile(source))
        return QStringLiteral("This is not a file.");
    const Query query(source, stop);
    const QString complaint =
        query.run({QStringLiteral("-show_format"), QStringLiteral("-show_streams")}).stderr.trimmed();
    return complaint.isEmpty() ? QStringLiteral("ffprobe could not find a valid video stream in this file.")
                               : complaint;
}

} // namespace marrowcut::media
