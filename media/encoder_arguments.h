#pragma once

#include "media/encoders.h"

#include <QStringList>

/// The exact argument lists of ffmpeg and ffprobe. Pure.
namespace marrowcut::media
{

/// One consecutive part of a clip. Times in seconds from the clip's start.
struct Piece {
    qint64 index = 0;
    double start = 0;
    double length = 0;
};

/// The whole clip into one finished file.
QStringList singlePassArguments(const EncodeJob &job, const SystemValues &system, const QString &output);

/// One piece into a part file, with its own first timecodes burned in.
QStringList pieceArguments(const EncodeJob &job, const SystemValues &system, const Piece &piece,
                           const QString &output);

/// The parts of a join list into one file, without encoding again.
QStringList joinArguments(const QString &joinList, const QString &tc, const QString &output);

/// ffprobe's output formats: the bare values, one a line; one line for each stream.
QString plainFormat();
QString csvFormat();
/// Queries entries of a file: of the container or, where streams are given, of those.
QStringList ffprobeArguments(const QString &entries, const QString &path, const QString &streams = {},
                             const QString &format = plainFormat());

} // namespace marrowcut::media
