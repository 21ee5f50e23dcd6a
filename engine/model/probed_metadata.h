#pragma once

#include <QString>

namespace marrowcut
{

/// What ffprobe reported of one clip. Texts stay as the tool printed them.
struct ProbedMetadata {
    QString tc;          ///< source timecode of the first frame
    QString rate;        ///< average frame rate, such as "30000/1001"
    int audioCount = 0;  ///< number of audio streams
    double duration = 0; ///< seconds; 0 when unknown
    QString fileDate;    ///< "unavailable" when the clip carries no date

    bool hasTimecodeTag = true; ///< false when tc is the default
    bool hasFileDate = true;    ///< false when fileDate is the default
};

} // namespace marrowcut
