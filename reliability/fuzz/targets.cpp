#include "targets.h"

#include "engine/model/proxy_job.h"
#include "media/burn_in_filter.h"
#include "media/error_output.h"
#include "media/numbers.h"
#include "media/probe.h"
#include "media/timecode_math.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace marrowcut::fuzz
{

namespace
{

using namespace marrowcut::media;

void require(bool held)
{
    if (!held)
        std::abort();
}

/// Several texts, with NUL bytes between them.
QStringList pieces(QByteArrayView bytes)
{
    QStringList list;
    for (const QByteArray &piece : bytes.toByteArray().split('\0'))
        list.append(QString::fromUtf8(piece));
    while (list.size() < 6)
        list.append(QString());
    return list;
}

void lineSplitter(QByteArrayView bytes)
{
    LineSplitter whole;
    const QStringList expected = whole.add(bytes);
    for (const QString &line : expected)
        require(!line.isEmpty() && !line.contains(QLatin1Char('\r')) && !line.contains(QLatin1Char('\n')));

    LineSplitter portions; // the same however the bytes arrive
    QStringList delivered;
    const qsizetype size = bytes.isEmpty() ? 1 : 1 + uchar(bytes[0]) % 16;
    for (qsizetype at = 0; at < bytes.size(); at += size)
        delivered += portions.add(bytes.sliced(at, std::min(size, bytes.size() - at)));
    require(delivered == expected);
}

void timeSeconds(QByteArrayView bytes)
{
    const auto seconds = parseTimeSeconds(QString::fromUtf8(bytes));
    require(!seconds || *seconds >= 0);
}

void speed(QByteArrayView bytes)
{
    const QString line = QString::fromUtf8(bytes);
    const auto factor = parseSpeed(line);
    require(!factor || (std::isfinite(*factor) && *factor >= 0));
    parseFrameCount(line);
    formatETA(remainingTime(90, line).value_or(0));
}

void nominalFPS(QByteArrayView bytes)
{
    TimecodeMath::nominalFPS(QString::fromUtf8(bytes));
}

void timecodeAddition(QByteArrayView bytes)
{
    const QStringList texts = pieces(bytes);
    const QString tc = texts[0];
    const double offset = decimalNumber(texts[1]).value_or(90);
    const QString sum = TimecodeMath::add(tc, offset, TimecodeMath::nominalFPS(texts[2]));
    static const QRegularExpression timecode(QStringLiteral("\\A(-?\\d+:){3}-?\\d+\\z"));
    require(sum == tc || timecode.match(sum).hasMatch());
    require(TimecodeMath::add(tc, offset, 0) == tc);
}

/// As ffprobe prints them, some of them huge.
void probeAnswers(QByteArrayView bytes)
{
    constexpr qsizetype longestValue = 4096;
    QStringList outputs = pieces(bytes);
    for (QString &output : outputs) {
        if (output.startsWith(QLatin1String("xx")))
            output = output.repeated(longestValue);
    }
    QStringList values;
    for (const QString &output : std::as_const(outputs)) {
        values.append(firstLine(output));
        require(values.last().size() <= longestValue && !values.last().contains(QLatin1Char('\n')));
    }
    const auto meta = metadataFrom({values[0], values[1], outputs[2], values[3], values[4], values[5]});
    if (!meta)
        return;
    require(!meta->tc.isEmpty() && !meta->rate.isEmpty() && !meta->fileDate.trimmed().isEmpty());
    require(meta->audioCount >= 0 && std::isfinite(meta->duration));
    require(decimalNumber(decimalText(meta->duration)) == meta->duration);
}

/// What no container begins with is text: valid UTF-8 as far as it was read, with or without NUL padding.
void textCheck(QByteArrayView bytes)
{
    for (const char *head : {"#EXTM3U", "ffconcat", "<?xml"}) {
        if (bytes.startsWith(QByteArrayView(head))) {
            require(isText(bytes));
            return;
        }
    }
    constexpr qsizetype longestCharacter = 4;
    constexpr qsizetype shortestText = 32;
    const QByteArrayView unpadded = bytes.first(bytes.indexOf('\0') < 0 ? bytes.size() : bytes.indexOf('\0'));
    const bool text = isText(unpadded);
    require(!text || !unpadded.isEmpty());
    if (std::ranges::all_of(unpadded, [](char byte) { return byte > 0; }))
        require(text || unpadded.isEmpty());
    for (qsizetype at = 0; at + longestCharacter < unpadded.size(); ++at)
        require(!text || uchar(unpadded[at]) < 0xF5); // a byte that UTF-8 never has
    if (text && unpadded.size() > longestCharacter)
        require(isText(unpadded.chopped(1))); // within a character, too
    require(isText(unpadded.toByteArray() + QByteArray(64, '\0')) ==
            (text && unpadded.size() >= shortestText));
}

/// Reads a quoted value as the filter-graph parser does, and says whether the text can get out of it:
/// within quotes everything is itself, a quote ends them, a backslash outside protects one character.
void nameEscaping(QByteArrayView bytes)
{
    const QString text = QString::fromUtf8(bytes);
    QString escaped = escapeForDrawtext(text);
    const QString noExpansion = QStringLiteral("':expansion='none");
    if (escaped.endsWith(noExpansion) && (text.contains(u'%') || text.contains(u'\\')))
        escaped.chop(noExpansion.size());
    else
        require(!text.contains(u'%') && !text.contains(u'\\'));

    QString unquoted; // what the graph's parser hands to the filter's option parser
    bool quoted = true;
    for (qsizetype at = 0; at < escaped.size(); ++at) {
        if (escaped[at] == u'\'') {
            quoted = !quoted;
        } else if (!quoted) {
            require(escaped[at] == u'\\' && at + 1 < escaped.size()); // nothing else ever stands outside
            unquoted += escaped[++at];
        } else {
            unquoted += escaped[at];
        }
    }
    require(quoted);

    QString value; // which takes a backslash for protection and a bare colon for the value's end
    for (qsizetype at = 0; at < unquoted.size(); ++at) {
        require(unquoted[at] != u':' && unquoted[at] != u'\'');
        if (unquoted[at] == u'\\') {
            require(at + 1 < unquoted.size());
            ++at;
        }
        value += unquoted[at];
    }
    require(value == text);
}

} // namespace

const std::array<Target, 8> targets = {{
    {"line-splitter", lineSplitter},
    {"time-seconds", timeSeconds},
    {"speed", speed},
    {"nominal-fps", nominalFPS},
    {"timecode-addition", timecodeAddition},
    {"probe-answers", probeAnswers},
    {"text-check", textCheck},
    {"name-escaping", nameEscaping},
}};

} // namespace marrowcut::fuzz
