#pragma once

#include <QList>
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

/// What the tools are told differently on each operating system.
struct SystemValues {
    QString fontFile;                     ///< the monospaced font that text is drawn with
    QStringList hardwareDecoding;         ///< options before the input
    VideoEncoder videoEncoder;            ///< the one in use; as the row has it, the one that always works
    QList<VideoEncoder> hardwareEncoders; ///< better where they work, the best first

    /// The same with another encoder in use.
    SystemValues with(const VideoEncoder &encoder) const;
};

SystemValues macOSValues();

/// Hardware decoding was never measured to help; "none" keeps the tool from looking for it. Why the
/// preset is veryfast: docs/performance.md.
SystemValues linuxValues(const QString &fontFile);

/// What --encoder can name on the system that this program was built for.
QStringList encoderNames();

/// The row of the system that this program was built for. Looks the font up: some milliseconds.
SystemValues currentSystemValues();

} // namespace marrowcut::media
