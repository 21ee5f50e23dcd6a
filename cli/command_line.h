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
    bool recursive = false;
    bool notify = false;
    bool quiet = false;
    bool json = false;
    std::optional<QString> namesFrom; ///< file with more names, "-" for standard input; not read yet
    QList<QUrl> items;                ///< absolute
    QStringList unusableNames;        ///< names that are not valid UTF-8; for showing only

    bool namesNothing() const { return items.isEmpty() && unusableNames.isEmpty(); }
};

struct CommandLine {
    std::optional<Request> request = {}; ///< absent when there is only something to print
    QString output = {};                 ///< the text of --help or --version
    QString error = {};                  ///< what is wrong with the usage, or empty
    QString encoderToPrint = {};         ///< value of --encoder to resolve and print as well, unless empty
};

/// Adds the names in a list, each ended by a NUL character; empty names are left out. Returns what is wrong
/// with the list, or an empty text.
QString addNames(QByteArrayView list, Request &request);

/// The text of --help, at most 80 columns wide.
QString helpText();

/// The error message for an argument that is not a known option: names the option closest to its name, or how
/// to write a file's name that begins with a dash. Names are given without their dashes.
QString unknownOptionMessage(const QString &argument, const QString &name, const QStringList &knownOptions);

/// Parses the arguments of main(), the program's name first.
CommandLine parseCommandLine(std::span<char *> arguments, const QString &version);

} // namespace marrowcut::cli
