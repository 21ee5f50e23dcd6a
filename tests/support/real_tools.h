#pragma once

#include "media/ffmpeg_locator.h"
#include "media/process_runner.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

/// The system's tools, as tests use them to make clips and to judge proxies.
namespace marrowcut::testing
{

/// The words of a command line, split at single spaces.
inline QStringList words(const QString &line)
{
    return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Runs ffmpeg quietly; a test that needs the result fails with the tool's own words.
inline bool ffmpeg(const QStringList &arguments)
{
    const QStringList quiet = words(QStringLiteral("-nostdin -y -v error"));
    const auto result = media::ProcessRunner::run(media::FFmpegLocator::ffmpegPath(), quiet + arguments);
    if (result.status != 0)
        qWarning("%s", qPrintable(result.stderr));
    return result.status == 0;
}

/// The answer of ffprobe to one query, its lines joined with commas.
inline QString ffprobe(const QString &options, const QString &file)
{
    const QStringList arguments = words(QStringLiteral("-v error ") + options) +
                                  words(QStringLiteral("-of csv=p=0")) + QStringList{file};
    return media::ProcessRunner::run(media::FFmpegLocator::ffprobePath(), arguments)
        .stdout.trimmed()
        .replace(QLatin1Char('\n'), QLatin1Char(','));
}

inline QByteArray fileContents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The brightness of every pixel of the first frame that ffmpeg gives with these arguments.
inline QByteArray grayFrame(const QStringList &arguments)
{
    const QTemporaryDir folder;
    const QString raw = folder.filePath(QStringLiteral("frame.gray"));
    const QStringList output =
        words(QStringLiteral("-frames:v 1 -pix_fmt gray -f rawvideo")) + QStringList{raw};
    return ffmpeg(arguments + output) ? fileContents(raw) : QByteArray();
}

/// Mean difference of two frames' pixels, 0 to 255; the largest possible when they don't match in size.
inline double difference(const QByteArray &one, const QByteArray &other)
{
    if (one.isEmpty() || one.size() != other.size())
        return 255;
    double sum = 0;
    for (qsizetype at = 0; at < one.size(); ++at)
        sum += std::abs(int(uchar(one[at])) - int(uchar(other[at])));
    return sum / double(one.size());
}

} // namespace marrowcut::testing
