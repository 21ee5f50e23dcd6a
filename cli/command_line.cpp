#include "command_line.h"

#include "engine/video_files.h"
#include "platform/utf8.h"

#include <QCommandLineParser>
#include <QDir>

namespace marrowcut::cli
{

namespace
{

const char *const usage = R"(Usage: marrowcut-cli [options] PATH...
       marrowcut-cli [options] --files-from FILE [PATH...]

Makes a small H.264 proxy of each clip (MXF, MOV, MP4) in a folder marrowcut_proxies
beside it, with file name, source timecode, elapsed time and file date burned into the
picture. PATH is a clip, or a folder whose clips are meant (folders within are not entered).
A clip whose proxy exists is left alone.

Options:
  --quality PRESET  standard, smaller or tiny; without it the preset last chosen in the
                    window, else standard
  --no-burn-in      leave the picture without text
  --notify          show a desktop notification at the end
  --quiet           print failures only
  --json            print one JSON object per line and event, for programs
  --files-from FILE read more names from FILE, - for standard input, each ended by a NUL
                    character as find -print0 writes them
  --help            show this help
  --version         show the version

Exit status: 0 every clip has its proxy, 1 some failed, 2 wrong usage or nothing to do,
3 ffmpeg or ffprobe is missing, 130 interrupted.
)";

/// Absolute, "." and doubled slashes taken out. ".." stays: where links are involved, only the file
/// system knows what it means.
QString absolutePath(const QString &path)
{
    const QString absolute =
        path.startsWith(QLatin1Char('/')) ? path : QDir::currentPath() + QLatin1Char('/') + path;
    QStringList kept;
    for (const QString &part : absolute.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (part != QLatin1String("."))
            kept.append(part);
    }
    return QLatin1Char('/') + kept.join(QLatin1Char('/'));
}

void addPath(const QString &path, Request &request)
{
    request.items.append(QUrl::fromLocalFile(path.isEmpty() ? path : absolutePath(path)));
}

CommandLine usageError(const QString &problem)
{
    return {.request = {}, .output = {}, .error = problem};
}

} // namespace

void addNames(QByteArrayView list, Request &request)
{
    while (!list.isEmpty()) {
        const qsizetype separator = list.indexOf('\0');
        const QByteArrayView bytes = separator < 0 ? list : list.first(separator);
        list = list.sliced(separator < 0 ? list.size() : separator + 1);
        if (bytes.isEmpty())
            continue;
        if (const auto name = decodeUtf8(bytes))
            addPath(*name, request);
        else
            request.unusableNames.append(shownBytes(bytes));
    }
}

CommandLine parseCommandLine(std::span<char *> arguments, const QString &version)
{
    Request request;
    QStringList texts;
    for (const char *bytes : arguments) {
        if (const auto text = decodeUtf8(bytes))
            texts.append(*text);
        else
            request.unusableNames.append(shownBytes(bytes));
    }

    const QCommandLineOption quality(QStringLiteral("quality"), {}, QStringLiteral("preset"));
    const QCommandLineOption noBurnIn(QStringLiteral("no-burn-in"));
    const QCommandLineOption notify(QStringLiteral("notify"));
    const QCommandLineOption quiet(QStringLiteral("quiet"));
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption filesFrom(QStringLiteral("files-from"), {}, QStringLiteral("file"));
    const QCommandLineOption help(QStringList{QStringLiteral("help"), QStringLiteral("h")});
    const QCommandLineOption showVersion(QStringLiteral("version"));
    QCommandLineParser parser;
    parser.addOptions({quality, noBurnIn, notify, quiet, json, filesFrom, help, showVersion});
    if (!parser.parse(texts))
        return usageError(parser.errorText());
    if (parser.isSet(help))
        return {.request = {}, .output = QString::fromLatin1(usage), .error = {}};
    if (parser.isSet(showVersion))
        return {.request = {}, .output = QStringLiteral("marrowcut-cli %1\n").arg(version), .error = {}};

    if (parser.isSet(quality)) {
        request.quality = QualityPreset::fromRawValue(parser.value(quality));
        if (!request.quality)
            return usageError(QStringLiteral("Unknown quality '%1': it is standard, smaller or tiny.")
                                  .arg(parser.value(quality)));
    }
    request.burnIn = !parser.isSet(noBurnIn);
    request.notify = parser.isSet(notify);
    request.quiet = parser.isSet(quiet);
    request.json = parser.isSet(json);
    if (request.json && request.quiet)
        return usageError(QStringLiteral("--json and --quiet exclude each other."));
    if (parser.isSet(filesFrom))
        request.namesFrom = parser.value(filesFrom);
    for (const QString &path : parser.positionalArguments())
        addPath(path, request);
    if (request.items.isEmpty() && request.unusableNames.isEmpty() && !request.namesFrom)
        return usageError(QStringLiteral("No clip or folder was named."));
    return {.request = request, .output = {}, .error = {}};
}

} // namespace marrowcut::cli
