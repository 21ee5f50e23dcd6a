#include "ui/shell/command_line.h"

#include "platform/outside_text.h"

#include <QCommandLineParser>

namespace marrowcut
{

namespace
{

const char *const usage = R"(Usage: marrowcut [options] [PATH...]

Opens the window. Each PATH, a clip (MXF, MOV, MP4) or a folder whose clips are meant, is
queued as if it were dropped there. For use without a window there is marrowcut-cli.

Options:
  --help            show this help
  --version         show the version
)";

QUrl itemUrl(const QString &argument)
{
    if (argument.startsWith(QLatin1String("file://")))
        return localFileUrl(QUrl(argument)).value_or(QUrl(argument));
    return QUrl::fromLocalFile(absolutePath(argument));
}

} // namespace

CommandLine parseCommandLine(std::span<char *> arguments, const QString &version)
{
    QStringList texts;
    for (const char *bytes : arguments) {
        if (const auto text = decodeUtf8(bytes)) // no clip can be queued under another name
            texts.append(*text);
    }
    const QCommandLineOption help(QStringList{QStringLiteral("help"), QStringLiteral("h")});
    const QCommandLineOption showVersion(QStringLiteral("version"));
    QCommandLineParser parser;
    parser.addOptions({help, showVersion});
    CommandLine commandLine;
    if (!parser.parse(texts))
        commandLine.error = parser.errorText();
    else if (parser.isSet(help))
        commandLine.output = QString::fromLatin1(usage);
    else if (parser.isSet(showVersion))
        commandLine.output = QStringLiteral("marrowcut %1\n").arg(version);
    for (const QString &argument : parser.positionalArguments())
        commandLine.items.append(itemUrl(argument));
    return commandLine;
}

} // namespace marrowcut
