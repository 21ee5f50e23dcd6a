#pragma once

#include "media/encoders.h"

#include <QStringList>

/// The exact argument lists of ffmpeg. Pure.
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

} // namespace marrowcut::media
