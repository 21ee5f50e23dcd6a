#pragma once

#include <QString>
#include <QStringList>

namespace marrowcut::media
{

/// An H.264 encoder of ffmpeg.
struct VideoEncoder {
    QString name;             ///< as ffmpeg calls it
    QStringList options = {}; ///< its own; the rate options are the same for all
    QStringList signs = {};   ///< paths one of which exists where its hardware is; empty: it may be anywhere

    bool operator==(const VideoEncoder &) const = default;
};

} // namespace marrowcut::media
