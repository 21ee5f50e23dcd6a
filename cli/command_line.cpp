#include "command_line.h"

#include "engine/video_files.h"
#include "media/system_values.h"
#include "platform/file_names.h"

#include <QCommandLineParser>

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
  --encoder NAME    auto, libx264, h264_nvenc or h264_qsv; auto takes the best that works
                    on this machine
  --no-burn-in      leave the picture without text
  --notify          show a desktop notification at the end
  --quiet           print failures only
  --json            print one JSON object per line and event, for programs
  --files-from FILE read more names from FILE, - for standard input, each ended by a NUL
                    character as find -print0 writes them
  --help            show this help
  --version         show the version; with --verbose also the encoder that is used

Exit status: 0 every clip has its proxy, 1 some failed or not all output could be written,
2 wrong usage or nothing to do, 3 ffmpeg, ffprobe or the named encoder is missing or does
not work, 130 interrupted.
)";

void addPath(const QString &path, Request &request)
{
    request.items.append(QUrl::fromLocalFile(path.isEmpty() ? path : absolutePath(path)));
}

CommandLine usageError(const QString &problem)
{
    return {.error = problem};
}

void addKnownOptions(QCommandLineParser &parser)
{
    for (const QString &name :
         {QStringLiteral("no-burn-in"), QStringLiteral("notify"), QStringLiteral("quiet"),
          QStringLiteral("json"), QStringLiteral("version"), QStringLiteral("verbose")})
        parser.addOption(QCommandLineOption(name));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("help"), QStringLiteral("h")}));
    parser.addOption({QStringLiteral("quality"), {}, QStringLiteral("preset")});
    parser.addOption({QStringLiteral("encoder"), {}, QStringLiteral("name"), QStringLiteral("auto")});
    parser.addOption({QStringLiteral("files-from"), {}, QStringLiteral("file")});
}

/// The arguments that are text; the others become names that cannot be used.
QStringList decoded(std::span<char *> arguments, Request &request)
{
    QStringList texts;
    for (const char *bytes : arguments) {
        if (const auto text = decodeUtf8(bytes))
            texts.append(*text);
        else
            request.unusableNames.append(shownBytes(bytes));
    }
    return texts;
}

void readOptions(const QCommandLineParser &parser, Request &request)
{
    request.quality = QualityPreset::fromRawValue(parser.value(QStringLiteral("quality")));
    request.encoder = parser.value(QStringLiteral("encoder"));
    request.burnIn = !parser.isSet(QStringLiteral("no-burn-in"));
    request.notify = parser.isSet(QStringLiteral("notify"));
    request.quiet = parser.isSet(QStringLiteral("quiet"));
    request.json = parser.isSet(QStringLiteral("json"));
    if (parser.isSet(QStringLiteral("files-from")))
        request.namesFrom = parser.value(QStringLiteral("files-from"));
    for (const QString &path : parser.positionalArguments())
        addPath(path, request);
}

CommandLine versionAnswer(const QString &version, const QCommandLineParser &parser)
{
    CommandLine answer = {.output = QStringLiteral("marrowcut-cli %1\n").arg(version)};
    if (parser.isSet(QStringLiteral("verbose")))
        answer.encoderToPrint = parser.value(QStringLiteral("encoder"));
    return answer;
}

/// What is wrong with the named encoder, or nothing.
QString encoderProblem(const QString &name)
{
    const QStringList known = QStringList{QStringLiteral("auto")} + media::encoderNames();
    if (known.contains(name))
        return QString();
    return QStringLiteral("Unknown encoder '%1': it is %2 or %3.")
        .arg(name, known.first(known.size() - 1).join(QStringLiteral(", ")), known.last());
}

/// What is wrong with a request that was read, or nothing.
QString problemOf(const Request &request, const QCommandLineParser &parser)
{
    if (!request.quality && parser.isSet(QStringLiteral("quality")))
        return QStringLiteral("Unknown quality '%1': it is standard, smaller or tiny.")
            .arg(parser.value(QStringLiteral("quality")));
    if (parser.isSet(QStringLiteral("verbose")))
        return QStringLiteral("--verbose goes with --version only.");
    if (request.json && request.quiet)
        return QStringLiteral("--json and --quiet exclude each other.");
    if (request.items.isEmpty() && request.unusableNames.isEmpty() && !request.namesFrom)
        return QStringLiteral("No clip or folder was named.");
    return QString();
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
    QCommandLineParser parser;
    addKnownOptions(parser);
    if (!parser.parse(decoded(arguments, request)))
        return usageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        return {.output = QString::fromLatin1(usage)};
    if (const QString problem = encoderProblem(parser.value(QStringLiteral("encoder"))); !problem.isEmpty())
        return usageError(problem);
    if (parser.isSet(QStringLiteral("version")))
        return versionAnswer(version, parser);

    readOptions(parser, request);
    if (const QString problem = problemOf(request, parser); !problem.isEmpty())
        return usageError(problem);
    return {.request = request};
}

} // namespace marrowcut::cli
