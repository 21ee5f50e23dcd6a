#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <span>

namespace marrowcut
{

/// What the arguments request.
struct CommandLine {
    QList<QUrl> items; ///< to be queued; absolute
    QString output;    ///< of --help or --version: print it and end
    QString error;     ///< empty when the usage is right
};

/// Parses the arguments as the system passed them, the program's name first. File URLs are accepted like
/// paths, since file managers can pass either.
CommandLine parseCommandLine(std::span<char *> arguments, const QString &version);

} // namespace marrowcut
