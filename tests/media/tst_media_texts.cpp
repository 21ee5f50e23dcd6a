#include "media/burn_in_filter.h"
#include "media/encoder_arguments.h"
#include "media/numbers.h"
#include "media/progress_parsing.h"
#include "media/timecode_math.h"

#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace marrowcut;
using namespace marrowcut::media;

namespace
{

FilterInputs exampleInputs()
{
    return {.filename = QStringLiteral("A001.mxf"),
            .srcTC = QStringLiteral("01:02:03:04"),
            .elapsedTC = QStringLiteral("00:00:00:00"),
            .rate = QStringLiteral("25/1"),
            .audioCount = 2,
            .fileDate = QStringLiteral("2023-05-01 12:34:56"),
            .preset = QualityPreset::standard,
            .burnInEnabled = true};
}

EncodeJob exampleJob(int audioCount)
{
    return {QStringLiteral("/footage/A001.mxf"),
            {},
            {},
            {QStringLiteral("10:00:00:00"), QStringLiteral("25/1"), audioCount, 200.0,
             QStringLiteral("unavailable")},
            QUuid(),
            QualityPreset::smaller,
            false};
}

/// A graph without the places and looks of its texts, whose one home is the layout table.
QString contentOf(QString graph)
{
    static const QRegularExpression look(QStringLiteral(":x=[^:]+:y=[^:]+:fontsize=[^:]+:[^,;\\[]*black"));
    return graph.remove(look).remove(QStringLiteral("drawtext=fontfile='/f.ttf':"));
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
        const QString font = QStringLiteral("/f.ttf");
        FilterInputs inputs = exampleInputs();
        const QString drawn =
            QStringLiteral(",text='A001.mxf',text='SOURCE TC',timecode='01\\:02\\:03\\:04':rate=25/1,"
                           "text='CLIP ELAPSED',timecode='00\\:00\\:00\\:00':rate=25/1,text='FILE DATE  ");
        QCOMPARE(
            contentOf(buildFilter(inputs, font)),
            QStringLiteral("[0:v:0]scale=960:-2") + drawn +
                QStringLiteral("2023-05-01 12\\:34\\:56'[v];[0:a:0][0:a:1]amix=inputs=2:duration=longest:"
                               "normalize=0,loudnorm=I=-16:TP=-1.5:LRA=11[a]"));
        inputs.preset = QualityPreset::tiny;
        inputs.fileDate = QStringLiteral("it's 5%");
        inputs.audioCount = 0;
        QCOMPARE(contentOf(buildFilter(inputs, font)),
                 QStringLiteral("[0:v:0]scale=480:-2") + drawn +
                     QStringLiteral("it\\'\\''s 5%':expansion='none'[v]"));
        inputs.burnInEnabled = false;
        QCOMPARE(buildFilter(inputs, QString()), QStringLiteral("[0:v:0]scale=480:-2[v]"));
    }

    void argumentLists()
    {
        const SystemValues linux = linuxValues(QStringLiteral("/f.ttf"));
        const QString graph =
            QStringLiteral("[0:v:0]scale=720:-2[v];[0:a:0]amix=inputs=1:duration=longest:normalize=0,"
                           "loudnorm=I=-16:TP=-1.5:LRA=11[a]");
        QCOMPARE(
            spaced(singlePassArguments(exampleJob(1), macOSValues(), QStringLiteral("/t.mp4"))),
            QStringLiteral(
                "-y -loglevel warning -stats -hwaccel videotoolbox -i /footage/A001.mxf -filter_complex ") +
                graph +
                QStringLiteral(
                    " -map [v] -map [a] -c:v h264_videotoolbox -b:v 1.2M -maxrate 1.7M -bufsize 2.4M "
                    "-pix_fmt yuv420p -c:a aac -b:a 96k -ar 48000 -ac 2 -timecode 10:00:00:00 "
                    "-movflags +faststart /t.mp4"));
        QCOMPARE(
            spaced(pieceArguments(exampleJob(0), linux, {2, 180.0, 20.0}, QStringLiteral("/p.mp4"))),
            QStringLiteral(
                "-y -loglevel warning -stats -hwaccel none -ss 180.0 -i /footage/A001.mxf -t 20.0 "
                "-filter_complex [0:v:0]scale=720:-2[v] -map [v] -c:v libx264 -preset veryfast -b:v 1.2M "
                "-maxrate 1.7M -bufsize 2.4M -pix_fmt yuv420p -movflags +faststart /p.mp4"));
        QCOMPARE(spaced(joinArguments(QStringLiteral("/w/concat.txt"), QStringLiteral("10:00:00:00"),
                                      QStringLiteral("/j.mp4"))),
                 QStringLiteral(
                     "-y -loglevel warning -f concat -safe 0 -i /w/concat.txt -c copy -timecode 10:00:00:00 "
                     "/j.mp4"));
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
        QCOMPARE(add("01:00:00:00", 90, 25), QStringLiteral("01:01:30:00"));
        QCOMPARE(add("00:59:59:24", 0.04, 25), QStringLiteral("01:00:00:00"));
        QCOMPARE(add("00:00:00:00", 180, 30), QStringLiteral("00:03:00:00"));
        QCOMPARE(add("23:59:50:00", 20, 25), QStringLiteral("24:00:10:00"));
        // Unchanged: drop-frame, no rate, too few fields, and sums that are no timecode any more.
        QCOMPARE(add("01:00:00;00", 90, 30), QStringLiteral("01:00:00;00"));
        QCOMPARE(add("01:00:00:00", 90, 0), QStringLiteral("01:00:00:00"));
        QCOMPARE(add("01:00:00", 90, 25), QStringLiteral("01:00:00"));
        QCOMPARE(add("9223372036854775807:00:00:00", 90, 25), QStringLiteral("9223372036854775807:00:00:00"));
        QCOMPARE(add("01:00:00:00", 1e300, 25), QStringLiteral("01:00:00:00"));
        QCOMPARE(add("01:00:00:00", 90, std::numeric_limits<qint64>::max()), QStringLiteral("01:00:00:00"));
    }

    void progressLines()
    {
        const QString line = QStringLiteral(
            "frame=   93 fps= 31 q=28.0 size=     256kB time=01:02:03.50 bitrate= 524.3kbits/s "
            "dup=1 drop=0 speed= 1.5x    ");
        QCOMPARE(parseTimeSeconds(line), 3723.5);
        QCOMPARE(parseSpeed(line), 1.5);
        QCOMPARE(parseFrameCount(line), 93);
        QCOMPARE(remainingTime(30, line), 20.0);

        QCOMPARE(parseSpeed(QStringLiteral("speed=   0x")), 0.0);
        QVERIFY(!remainingTime(30, QStringLiteral("speed=   0x")));
        QVERIFY(!parseSpeed(QStringLiteral("speed=N/A")));
        QVERIFY(!parseSpeed(QStringLiteral("speed=1.2.3x")));
        QVERIFY(!parseTimeSeconds(QStringLiteral("time=N/A")));
        QVERIFY(!parseTimeSeconds(QStringLiteral("time=-00:00:00.02")));
        QVERIFY(!parseFrameCount(QStringLiteral("[x] frame=3")));
    }

    void numbers()
    {
        QCOMPARE(decimalText(93.44), QStringLiteral("93.44"));
        QCOMPARE(decimalText(90), QStringLiteral("90.0"));
        QCOMPARE(decimalText(0.00001), QStringLiteral("0.00001"));
        QCOMPARE(decimalText(1e22), QStringLiteral("10000000000000000000000.0"));
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
