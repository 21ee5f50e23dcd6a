#pragma once

#include "engine/model/quality_preset.h"

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>
#include <span>

namespace marrowcut::cli
{

struct Request {
    std::optional<QualityPreset> quality; ///< absent: the remembered one
    QString encoder;                      ///< one of media::encoderNames(), or "auto"
    bool burnIn = true;
    bool notify = false;
    bool quiet = false;
    bool json = false;
    std::optional<QString> namesFrom; ///< file with more names, "-" for standard input; not read yet
    QList<QUrl> items;                ///< what was named, absolute
    QStringList unusableNames;        ///< named in bytes that are no text; for showing only
};

struct CommandLine {
    std::optional<Request> request = {}; ///< absent when there is only something to print
    QString output = {};                 ///< the text of --help or --version
    QString error = {};                  ///< what is wrong with the usage, or empty
    QString encoderToPrint = {};         ///< value of --encoder to resolve and print as well, unless empty
};

/// Takes names, separated by NUL, into what the request names. Empty ones don't count.
void addNames(QByteArrayView list, Request &request);

/// Reads the arguments as the system handed them over, the program's name first.
CommandLine parseCommandLine(std::span<char *> arguments, const QString &version);

} // namespace marrowcut::cli
