#include "media/burn_in_filter.h"
#include "media/encoder_arguments.h"
#include "media/error_output.h"
#include "media/numbers.h"
#include "media/timecode_math.h"

#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::media;

namespace
{

FilterInputs exampleInputs()
{
    return {.filename = u"A001.mxf"_s,
            .srcTC = u"01:02:03:04"_s,
            .elapsedTC = u"00:00:00:00"_s,
            .rate = u"25/1"_s,
            .audioCount = 2,
            .fileDate = u"2023-05-01 12:34:56"_s,
            .preset = QualityPreset::standard};
}

EncodeJob exampleJob(int audioCount)
{
    return {u"/footage/A001.mxf"_s,
            {},
            {},
            {u"10:00:00:00"_s, u"25/1"_s, audioCount, 200.0, u"unavailable"_s},
            QUuid(),
            QualityPreset::smaller,
            false};
}

/// A graph without the places and looks of its texts, whose one home is the layout table.
QString contentOf(QString graph)
{
    static const QRegularExpression look(u":x=[^:]+:y=[^:]+:fontsize=[^:]+:[^,;\\[]*black"_s);
    return graph.remove(look).remove(u"drawtext=fontfile='/f.ttf':"_s);
}

QString spaced(const QStringList &arguments)
{
    return arguments.join(QLatin1Char(' '));
}

} // namespace

class TestMediaTexts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void graphs()
    {
        const QString font = u"/f.ttf"_s;
        FilterInputs inputs = exampleInputs();
        const QString drawn =
            u",text='A001.mxf',text='SOURCE TC',timecode='01\\:02\\:03\\:04':rate=25/1,"
            "text='CLIP ELAPSED',timecode='00\\:00\\:00\\:00':rate=25/1,text='FILE DATE  "_s;
        QCOMPARE(contentOf(buildFilter(inputs, font)),
                 u"[0:v:0]scale=960:-2"_s + drawn +
                     u"2023-05-01 12\\:34\\:56'[v];[0:a:0][0:a:1]amix=inputs=2:duration=longest:"
                     "normalize=0,loudnorm=I=-16:TP=-1.5:LRA=11[a]"_s);
        inputs.preset = QualityPreset::tiny;
        inputs.fileDate = u"it's 5%"_s;
        inputs.audioCount = 0;
        QCOMPARE(contentOf(buildFilter(inputs, font)),
                 u"[0:v:0]scale=480:-2"_s + drawn + u"it\\'\\''s 5%':expansion='none'[v]"_s);
        inputs.burnInEnabled = false;
        QCOMPARE(buildFilter(inputs, QString()), u"[0:v:0]scale=480:-2[v]"_s);
    }

    void argumentLists()
    {
        const SystemValues linux = linuxValues(u"/f.ttf"_s);
        const QString graph = u"[0:v:0]scale=720:-2[v];[0:a:0]amix=inputs=1:duration=longest:normalize=0,"
                              "loudnorm=I=-16:TP=-1.5:LRA=11[a]"_s;
        QCOMPARE(
            spaced(singlePassArguments(exampleJob(1), macOSValues(), u"/t.mp4"_s)),
            u"-y -loglevel warning -stats -hwaccel videotoolbox -i /footage/A001.mxf -filter_complex "_s +
                graph +
                u" -map [v] -map [a] -c:v h264_videotoolbox -b:v 1.2M -maxrate 1.7M -bufsize 2.4M "
                "-pix_fmt yuv420p -c:a aac -b:a 96k -ar 48000 -ac 2 -timecode 10:00:00:00 "
                "-movflags +faststart /t.mp4"_s);
        QCOMPARE(spaced(pieceArguments(exampleJob(0), linux, {2, 180.0, 20.0}, u"/p.mp4"_s)),
                 u"-y -loglevel warning -stats -hwaccel none -ss 180.0 -i /footage/A001.mxf -t 20.0 "
                 "-filter_complex [0:v:0]scale=720:-2[v] -map [v] -c:v libx264 -preset veryfast -b:v 1.2M "
                 "-maxrate 1.7M -bufsize 2.4M -pix_fmt yuv420p -movflags +faststart /p.mp4"_s);
        EncodeJob drawn = exampleJob(0);
        drawn.burnInEnabled = true;
        for (const auto &[index, start] : {std::pair(0, u"00\\:00"_s),
                                           {1, u"01\\:30"_s},
                                           {2, u"03\\:00"_s},
                                           {3, u"04\\:30"_s},
                                           {4, u"06\\:00"_s},
                                           {39, u"58\\:30"_s}}) {
            const QString piece =
                spaced(pieceArguments(drawn, linux, {index, 90.0 * index, 90.0}, u"/p.mp4"_s));
            for (const QString &hour : {u"10"_s, u"00"_s})
                QVERIFY2(piece.contains(u"timecode='%1\\:%2\\:00'"_s.arg(hour, start)), qPrintable(piece));
        }
        QCOMPARE(spaced(joinArguments(u"/w/concat.txt"_s, u"10:00:00:00"_s, u"/j.mp4"_s)),
                 u"-y -loglevel warning -f concat -safe 0 -i /w/concat.txt -c copy -timecode 10:00:00:00 "
                 "/j.mp4"_s);
    }

    void nominalFPS()
    {
        const QList<std::pair<const char *, qint64>> cases = {
            {"30000/1001", 30}, {"24000/1001", 24}, {"60000/1001", 60}, {"25/1", 25},
            {"0/0", 0},         {"", 24},           {"25", 25},         {"25/0", 25},
            {"N/A", 24},        {"1/2/3", 1},       {"1e300", 0},       {"71/4", 18}};
        for (const auto &[rate, fps] : cases)
            QCOMPARE(TimecodeMath::nominalFPS(QLatin1String(rate)), fps);
    }

    void timecodeAddition()
    {
        const auto add = [](const char *tc, double seconds, qint64 fps) {
            return TimecodeMath::add(QLatin1String(tc), seconds, fps);
        };
        QCOMPARE(add("01:00:00:00", 90, 25), u"01:01:30:00"_s);
        QCOMPARE(add("00:59:59:24", 0.04, 25), u"01:00:00:00"_s);
        QCOMPARE(add("00:00:00:00", 180, 30), u"00:03:00:00"_s);
        QCOMPARE(add("23:59:50:00", 20, 25), u"24:00:10:00"_s);
        // Unchanged: drop-frame, no rate, too few fields, and sums that are no timecode any more.
        QCOMPARE(add("01:00:00;00", 90, 30), u"01:00:00;00"_s);
        QCOMPARE(add("01:00:00:00", 90, 0), u"01:00:00:00"_s);
        QCOMPARE(add("01:00:00", 90, 25), u"01:00:00"_s);
        QCOMPARE(add("9223372036854775807:00:00:00", 90, 25), u"9223372036854775807:00:00:00"_s);
        QCOMPARE(add("01:00:00:00", 1e300, 25), u"01:00:00:00"_s);
        QCOMPARE(add("01:00:00:00", 90, std::numeric_limits<qint64>::max()), u"01:00:00:00"_s);
    }

    void progressLines()
    {
        const QString line =
            u"frame=   93 fps= 31 q=28.0 size=     256kB time=01:02:03.50 bitrate= 524.3kbits/s "
            "dup=1 drop=0 speed= 1.5x    "_s;
        QCOMPARE(parseTimeSeconds(line), 3723.5);
        QCOMPARE(parseSpeed(line), 1.5);
        QCOMPARE(parseFrameCount(line), 93);
        QCOMPARE(remainingTime(30, line), 20.0);

        QCOMPARE(parseSpeed(u"speed=   0x"_s), 0.0);
        QVERIFY(!remainingTime(30, u"speed=   0x"_s));
        QVERIFY(!parseSpeed(u"speed=N/A"_s));
        QVERIFY(!parseSpeed(u"speed=1.2.3x"_s));
        QVERIFY(!parseTimeSeconds(u"time=N/A"_s));
        QVERIFY(!parseTimeSeconds(u"time=-00:00:00.02"_s));
        QVERIFY(!parseFrameCount(u"[x] frame=3"_s));
    }

    void numbers()
    {
        QCOMPARE(decimalText(93.44), u"93.44"_s);
        QCOMPARE(decimalText(90), u"90.0"_s);
        QCOMPARE(decimalText(0.00001), u"0.00001"_s);
        QCOMPARE(decimalText(1e22), u"10000000000000000000000.0"_s);
        QCOMPARE(decimalNumber(u"12.345000"), 12.345);
        QCOMPARE(decimalNumber(u"+1e2"), 100.0);
        for (const char *text : {"N/A", "", " 1", "1,5", "nan", "inf", "1e999", "+-1"})
            QVERIFY2(!decimalNumber(QString::fromLatin1(text)), text);
        QCOMPARE(wholeNumber(u"-07"), -7);
        QVERIFY(!wholeNumber(u"9223372036854775808"));
    }
};

QTEST_GUILESS_MAIN(TestMediaTexts)
#include "tst_media_texts.moc"
