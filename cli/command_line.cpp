#include "command_line.h"

#include "encoder_option.h"
#include "name_list.h"

#include "media/system_values.h"
#include "platform/outside_text.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

namespace marrowcut::cli
{

namespace
{

void addPath(const QString &path, Request &request)
{
    request.items.append(QUrl::fromLocalFile(path.isEmpty() ? path : absolutePath(path)));
}

QList<QCommandLineOption> knownOptions()
{
    QList<QCommandLineOption> options = {
        QCommandLineOption(QStringList{QStringLiteral("help"), QStringLiteral("h")}),
        QCommandLineOption(QStringList{QStringLiteral("version"), QStringLiteral("V")}),
        {QStringLiteral("quality"), {}, QStringLiteral("preset")},
        {QStringLiteral("encoder"), {}, QStringLiteral("name"), automaticEncoder()},
        {QStringLiteral("files-from"), {}, QStringLiteral("file")},
    };
    for (const QString &name :
         {QStringLiteral("no-burn-in"), QStringLiteral("recursive"), QStringLiteral("notify"),
          QStringLiteral("quiet"), QStringLiteral("json"), QStringLiteral("verbose")})
        options.append(QCommandLineOption(name));
    return options;
}

QString withoutDashes(const QString &argument)
{
    const auto isDash = [](QChar character) { return character == QLatin1Char('-'); };
    return argument.sliced(std::find_if_not(argument.begin(), argument.end(), isDash) - argument.begin());
}

/// What is wrong with arguments that the parser refused.
QString parseProblem(const QCommandLineParser &parser, const QStringList &arguments)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (unknown.isEmpty())
        return parser.errorText();
    QStringList known;
    for (const QCommandLineOption &option : knownOptions())
        known += option.names();
    for (const QString &argument : arguments) {
        const QString name = withoutDashes(argument).section(QLatin1Char('='), 0, 0);
        if (argument.startsWith(QLatin1Char('-')) && name == unknown.first())
            return unknownOptionMessage(argument, name, known);
    }
    return parser.errorText();
}

/// Begins arguments that are not valid UTF-8; half a surrogate pair, so no other text begins with it.
constexpr QChar unusableMark(0xD800);

/// All arguments as text, so that each keeps its place. Those that are not valid UTF-8 can only be shown.
QStringList decoded(std::span<char *> arguments)
{
    QStringList texts;
    for (const char *bytes : arguments)
        texts.append(decodeUtf8(bytes).value_or(unusableMark + shownBytes(bytes)));
    return texts;
}

void readOptions(const QCommandLineParser &parser, Request &request)
{
    request.quality = QualityPreset::fromRawValue(parser.value(QStringLiteral("quality")));
    request.encoder = parser.value(QStringLiteral("encoder"));
    request.burnIn = !parser.isSet(QStringLiteral("no-burn-in"));
    request.recursive = parser.isSet(QStringLiteral("recursive"));
    request.notify = parser.isSet(QStringLiteral("notify"));
    request.quiet = parser.isSet(QStringLiteral("quiet"));
    request.json = parser.isSet(QStringLiteral("json"));
    if (parser.isSet(QStringLiteral("files-from")))
        request.namesFrom = parser.value(QStringLiteral("files-from"));
    for (const QString &path : parser.positionalArguments()) {
        if (path.startsWith(unusableMark))
            request.unusableNames.append(path.sliced(1));
        else
            addPath(path, request);
    }
}

CommandLine versionOutput(const QString &version, const QCommandLineParser &parser)
{
    CommandLine result = {.output = QStringLiteral("marrowcut-cli %1\n").arg(version)};
    if (parser.isSet(QStringLiteral("verbose")))
        result.encoderToPrint = parser.value(QStringLiteral("encoder"));
    return result;
}

QString unknownValue(const QString &option, const QString &value, const QStringList &known)
{
    return QStringLiteral("Unknown %1 '%2'. Use %3 or %4.")
        .arg(option, value, known.first(known.size() - 1).join(QStringLiteral(", ")), known.last());
}

/// What is wrong with the named encoder, or an empty text.
QString encoderProblem(const QString &name)
{
    const QStringList known = QStringList{automaticEncoder()} + media::encoderNames();
    return known.contains(name) ? QString() : unknownValue(QStringLiteral("encoder"), name, known);
}

/// What is wrong with a parsed request, or an empty text.
QString requestProblem(const Request &request, const QCommandLineParser &parser)
{
    if (!request.quality && parser.isSet(QStringLiteral("quality")))
        return unknownValue(QStringLiteral("quality"), parser.value(QStringLiteral("quality")),
                            QualityPreset::rawValues());
    if (parser.isSet(QStringLiteral("verbose")))
        return QStringLiteral("--verbose works with --version only.");
    if (request.json && request.quiet)
        return QStringLiteral("--json and --quiet cannot be used together.");
    if (request.namesNothing() && !request.namesFrom)
        return QStringLiteral("No clip or folder was named.");
    return QString();
}

} // namespace

QString addNames(QByteArrayView list, Request &request)
{
    while (!list.isEmpty()) {
        const qsizetype separator = list.indexOf('\0');
        const QByteArrayView bytes = separator < 0 ? list : list.first(separator);
        list = list.sliced(separator < 0 ? list.size() : separator + 1);
        if (bytes.isEmpty())
            continue;
        const auto name = decodeUtf8(bytes);
        if (bytes.endsWith('\n') && !(name && QFileInfo::exists(*name)))
            return QStringLiteral(
                       "The names in %1 end in line feeds. Each has to end in a NUL character, as find "
                       "-print0 writes them.")
                .arg(nameListSource(*request.namesFrom));
        if (name)
            addPath(*name, request);
        else
            request.unusableNames.append(shownBytes(bytes));
    }
    return QString();
}

CommandLine parseCommandLine(std::span<char *> arguments, const QString &version)
{
    Request request;
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(
        QCommandLineParser::ParseAsLongOptions); // "-x" is one option, as typed
    parser.addOptions(knownOptions());
    const QStringList texts = decoded(arguments);
    if (!parser.parse(texts))
        return {.error = parseProblem(parser, texts)};
    if (parser.isSet(QStringLiteral("help")))
        return {.output = helpText()};
    if (const QString problem = encoderProblem(parser.value(QStringLiteral("encoder"))); !problem.isEmpty())
        return {.error = problem};
    if (parser.isSet(QStringLiteral("version")))
        return versionOutput(version, parser);

    readOptions(parser, request);
    if (const QString problem = requestProblem(request, parser); !problem.isEmpty())
        return {.error = problem};
    return {.request = request};
}

} // namespace marrowcut::cli
