#include "ui/sheets/ffmpeg_version_question.h"

#include "media/process_runner.h"
#include "platform/background_thread.h"
#include "ui/sheets/diagnostics_text.h"

namespace marrowcut
{

namespace
{

QString askFFmpeg(const QString &path, const std::stop_token &stop)
{
    try {
        const auto result = media::ProcessRunner::run(path, {QStringLiteral("-version")}, {.stop = stop});
        return ffmpegVersionLine(result.stdout);
    } catch (const media::ProcessRunner::LaunchError &) {
    } catch (const Interrupted &) {
    }
    return ffmpegVersionLine(QString());
}

} // namespace

FFmpegVersionQuestion::FFmpegVersionQuestion(const QString &ffmpegPath, std::chrono::milliseconds limit)
    : m_ffmpegPath(ffmpegPath)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(limit);
    connect(&m_limit, &QTimer::timeout, this, [this] { m_run.requestStop(); });
}

void FFmpegVersionQuestion::ask(const Answer &answer)
{
    const auto take = [this, answer, number = ++m_number](const QString &versionLine) {
        if (number != m_number) // a later one has taken its place
            return;
        m_limit.stop();
        answer(versionLine);
    };
    m_limit.start();
    const auto takeLater = [this, take](const QString &versionLine) {
        QMetaObject::invokeMethod(
            this, [take, versionLine] { take(versionLine); }, Qt::QueuedConnection);
    };
    const auto work = [takeLater, path = m_ffmpegPath](const std::stop_token &stop) {
        takeLater(askFFmpeg(path, stop));
    };
    if (!m_run.start(work))
        takeLater(ffmpegVersionLine(QString()));
}

} // namespace marrowcut
