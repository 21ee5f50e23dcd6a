#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>
#include <stop_token>

/// What ffprobe reports of a clip.
namespace marrowcut::media
{

/// The facts of one clip. Texts stay as the tool printed them.
struct ProbedMetadata {
    QString tc;          ///< source timecode of the first frame
    QString rate;        ///< average frame rate, such as "30000/1001"
    int audioCount = 0;  ///< number of audio streams
    double duration = 0; ///< seconds; 0 when unknown
    QString fileDate;    ///< "unavailable" when the clip carries no date

    bool hasTimecodeTag = true; ///< false when tc is the default
    bool hasFileDate = true;    ///< false when fileDate is the default
};

/// What ffprobe reported for each query: a value as firstLine() gives it. Empty where it printed nothing.
struct ProbeResults {
    QString timecode;
    QString frameRate;
    QString audioStreams; ///< all that was printed, one line per stream
    QString duration;
    QString modificationDate;
    QString creationDate; ///< used only when there is no modification date
};

/// The first line that is not empty, without white space at its ends. A line of more than 4,096 characters
/// counts as empty: no tag of a camera is that long, and every line of the manifest would repeat it.
QString firstLine(const QString &output);

/// The facts in the results, with their defaults; nothing when there is no frame rate. Pure.
std::optional<ProbedMetadata> metadataFrom(const ProbeResults &results);

/// Whether a file that begins with these bytes is text and no footage: valid UTF-8 up to its end or to a NUL
/// that does not come early, or a playlist with any bytes in it. The tools would play a playlist, and so any
/// file that it names, under every extension.
bool isText(QByteArrayView beginning);

/// The facts that the encoders need; nothing when the clip has no video stream with a frame rate or
/// cannot be read at all. Blocks while ffprobe runs; not for the main thread. Throws Interrupted only.
std::optional<ProbedMetadata> probe(const QString &source, const std::stop_token &stop = {});

/// The text that explains to the user why probe() returned nothing. Blocks and throws likewise.
QString probeFailureDetail(const QString &source, const std::stop_token &stop = {});

} // namespace marrowcut::media
