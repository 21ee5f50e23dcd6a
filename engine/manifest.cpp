#include "engine/manifest.h"

#include "media/numbers.h"

#include <QDateTime>
#include <QFile>
#include <QStringList>

#include <cstdio>

namespace marrowcut::Manifest
{

namespace
{

QByteArray header()
{
    return QByteArrayLiteral("source_filename,proxy_filename,source_timecode,frame_rate,duration_seconds,"
                             "audio_channels,file_date,status,processed_at\n");
}

bool writeWhole(QFile &file, const QByteArray &bytes)
{
    return file.write(bytes) == bytes.size();
}

/// Under a hidden name first, then renamed, so that the manifest never exists without its header.
void create(const QString &path)
{
    const QString folder = path.left(path.lastIndexOf(QLatin1Char('/')));
    QFile file(folder + QStringLiteral("/.tmp_manifest.csv"));
    file.remove(); // NewOnly below then follows no link that someone left there
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return;
    const bool written = writeWhole(file, header());
    file.close();
    if (!written ||
        std::rename(QFile::encodeName(file.fileName()).constData(), QFile::encodeName(path).constData()) != 0)
        file.remove();
}

QStringList probedFields(const std::optional<ProbedMetadata> &meta)
{
    if (!meta)
        return {QString(), QString(), QString(), QString(), QString()};
    return {meta->tc, meta->rate, media::decimalText(meta->duration), QString::number(meta->audioCount),
            meta->fileDate};
}

} // namespace

QString line(const OutputPaths &paths, const std::optional<ProbedMetadata> &meta, const QString &status)
{
    const QString processedAt = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    const QStringList fields = QStringList{paths.sourceFilename, paths.proxyFilename} + probedFields(meta) +
                               QStringList{status, processedAt};
    return fields.join(QLatin1Char(',')) + QLatin1Char('\n');
}

void append(const QString &path, const QString &line)
{
    if (!QFile::exists(path))
        create(path);
    QFile file(path);
    // Unbuffered: the line goes out in one piece, so that a full disk shows here.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly |
                   QIODevice::Unbuffered))
        return;
    const qint64 sizeBefore = file.size();
    if (!writeWhole(file, line.toUtf8()))
        file.resize(sizeBefore);
}

} // namespace marrowcut::Manifest
