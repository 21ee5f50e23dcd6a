#include "media/probe.h"

#include "media/ffmpeg_locator.h"
#include "media/probe_answers.h"
#include "media/process_runner.h"

#include <QFileInfo>
#include <QStringList>

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
