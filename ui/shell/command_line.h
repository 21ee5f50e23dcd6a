#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>
#include <span>

namespace marrowcut
{

/// What the arguments ask for.
struct CommandLine {
    QList<QUrl> items; ///< to be queued; absolute
    QString output;    ///< the answer to --help and --version: nothing more is to be done than print it
    QString error;     ///< what is wrong with the usage
};

/// Reads the arguments as the system handed them over, the program's name first. File URLs are taken like
/// paths, as file managers may hand over either.
CommandLine parseCommandLine(std::span<char *> arguments, const QString &version);

} // namespace marrowcut
