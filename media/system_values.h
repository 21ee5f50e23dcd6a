#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace marrowcut::media
{

/// An H.264 encoder of ffmpeg.
struct VideoEncoder {
    QString name;                 ///< as ffmpeg calls it
    QStringList options = {};     ///< its own; the rate options are the same for all
    QStringList devicePaths = {}; ///< one of these exists where its hardware is present; empty if unknown

    bool operator==(const VideoEncoder &) const = default;
};

/// What differs in the tools' arguments from one operating system to another.
struct SystemValues {
    QString fontFile;                     ///< the monospaced font that text is drawn with
    QStringList hardwareDecoding;         ///< options before the input
    VideoEncoder videoEncoder;            ///< the one in use; by default the software encoder
    QList<VideoEncoder> hardwareEncoders; ///< preferred where they work, the best first

    /// The same with another encoder in use.
    SystemValues with(const VideoEncoder &encoder) const;
};

SystemValues macOSValues();

/// Hardware decoding brought no measurable gain, and without "none" ffmpeg looks for it. Why the preset is
/// veryfast: docs/performance.md.
SystemValues linuxValues(const QString &fontFile);

/// What --encoder can name on the system that this program was built for.
QStringList encoderNames();

/// The values of the system that this program was built for. Looks the font up, which takes milliseconds.
SystemValues currentSystemValues();

} // namespace marrowcut::media
