// The system's own tools on small clips made on the spot; each proxy is opened again and judged.

#include "media/burn_in_filter.h"
#include "media/encoder_choice.h"
#include "media/encoders.h"
#include "media/probe.h"
#include "support/real_tools.h"

#include <QDir>
#include <QTest>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::media;
using namespace marrowcut::testing;

class TestRealEncodes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        const QString gray = u"-f lavfi -i color=gray:s=640x360:r=25 "_s;
        const QString sound = u"-f lavfi -i sine=440:r=48000 "_s;
        makeClip(u"four tracks.mxf"_s,
                 gray + sound.repeated(4) +
                     u"-map 0 -map 1 -map 2 -map 3 -map 4 -t 5 -c:v mpeg2video -b:v 4M -c:a pcm_s16le "
                     "-timecode 01:02:03:04"_s);
        makeClip(u"silent.mov"_s, gray + u"-t 1 -c:v mpeg4 -timecode 10:00:00:00 -metadata "
                                         "creation_time=2023-11-30T08:00:00.000000Z"_s);
        makeClip(u"late sound.mov"_s,
                 u"-f lavfi -i color=gray:s=320x240:r=25:d=4 -f lavfi -i sine=440:d=4.3 -c:v mpeg4"_s);
    }

    void singlePassProxy()
    {
        const QString proxy = encode(u"four tracks.mxf"_s, 0, QualityPreset::standard);
        QVERIFY(!proxy.isEmpty());
        QCOMPARE(ffprobe(u"-count_frames -select_streams v:0 -show_entries "
                         "stream=codec_name,width,height,pix_fmt,nb_read_frames"_s,
                         proxy),
                 u"h264,960,540,yuv420p,125"_s);
        QCOMPARE(ffprobe(u"-select_streams a -show_entries stream=codec_name,sample_rate,channels"_s, proxy),
                 u"aac,48000,2"_s);
        QCOMPARE(ffprobe(u"-select_streams v:0 -show_entries stream_tags=timecode"_s, proxy),
                 u"01:02:03:04"_s);
        const QByteArray bytes = fileContents(proxy);
        QVERIFY(bytes.indexOf("moov") < bytes.indexOf("mdat"));
        QVERIFY(!m_progress.isEmpty());
        // The last report is about the end of the clip (FFmpeg 5) or the start of its last frames (FFmpeg 7).
        QVERIFY(m_progress.last() > 0.95 && m_progress.last() <= 1.0);
    }

    void silentClipWithoutBurnIn()
    {
        QCOMPARE(probe(path(u"four tracks.mxf"_s))->audioCount, 4);
        QCOMPARE(probe(path(u"silent.mov"_s))->fileDate, u"2023-11-30 08:00:00"_s);
        const QString proxy = encode(u"silent.mov"_s, 0, QualityPreset::tiny, false);
        QCOMPARE(ffprobe(u"-show_entries stream=codec_type,width"_s, proxy), u"video,480,data"_s);
        const QByteArray frame = proxyFrame(proxy, 3);
        QVERIFY(!frame.isEmpty());
        const auto [darkest, brightest] = std::minmax_element(
            frame.begin(), frame.end(), [](char one, char other) { return uchar(one) < uchar(other); });
        QVERIFY(uchar(*brightest) - uchar(*darkest) < 8); // nothing is drawn on the gray
    }

    void joinedProxy()
    {
        const QString proxy = encode(u"four tracks.mxf"_s, 2, QualityPreset::standard);
        QVERIFY(!proxy.isEmpty());
        QCOMPARE(ffprobe(u"-count_frames -select_streams v:0 -show_entries "
                         "stream=nb_read_frames:stream_tags=timecode"_s,
                         proxy),
                 u"125,01:02:03:04"_s);
        // Pieces go on where the one before ended; each one's last report can be some frames back (FFmpeg 7).
        const auto goesBack = [](double before, double after) { return after < before - 0.03; };
        QVERIFY(std::adjacent_find(m_progress.begin(), m_progress.end(), goesBack) == m_progress.end());

        // The second piece begins with frame 50; five frames on, source and elapsed time read:
        const QByteArray frame = proxyFrame(proxy, 55);
        const auto differenceTo = [&](const QString &srcTC, const QString &elapsedTC) {
            return difference(frame, expectedFrame(u"four tracks.mxf"_s, srcTC, elapsedTC));
        };
        const double right = differenceTo(u"01:02:05:09"_s, u"00:00:02:05"_s);
        const double oneFrameOff = differenceTo(u"01:02:05:08"_s, u"00:00:02:05"_s);
        const double unshifted = differenceTo(u"01:02:03:09"_s, u"00:00:00:05"_s);
        QVERIFY2(right < 1.0, qPrintable(QString::number(right)));
        QVERIFY(right < oneFrameOff);
        QVERIFY(oneFrameOff < unshifted);
    }

    void soundBeyondTheLastPicture()
    {
        // Two pieces of two seconds hold all frames; a third has sound only.
        const QString proxy = encode(u"late sound.mov"_s, 2, QualityPreset::tiny);
        QVERIFY(!proxy.isEmpty());
        QCOMPARE(ffprobe(u"-count_frames -select_streams v:0 -show_entries stream=duration,nb_read_frames"_s,
                         proxy),
                 u"4.000000,100"_s);
    }

    void encoderTest()
    {
        const SystemValues system = currentSystemValues();
        QCOMPARE(encoderTestFailure(system, QualityPreset::tiny, std::chrono::minutes(5)), std::nullopt);
        const auto failure = encoderTestFailure(system.with({.name = u"h264_no"_s}), QualityPreset::tiny,
                                                std::chrono::minutes(5));
        QVERIFY(failure && failure->contains(u"Unknown encoder 'h264_no'"_s));
    }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    void makeClip(const QString &name, const QString &options) const
    {
        QVERIFY(ffmpeg(words(options) + QStringList{path(name)}));
    }

    /// Encodes with pieces of chunkSeconds, or in a single pass for 0; gives the proxy's path.
    QString encode(const QString &clip, double chunkSeconds, QualityPreset preset, bool burnIn = true)
    {
        const QString outDir = path(u"out #1"_s); // not to be taken for an address
        const QString final = outDir + u"/proxy.mp4"_s;
        QDir(outDir).removeRecursively();
        QDir().mkpath(outDir);
        m_progress.clear();
        OutputPaths paths = OutputPaths::forSource(QUrl::fromLocalFile(path(clip)));
        paths.outDir = outDir;
        paths.finalOutput = final;
        paths.tmpOutput = outDir + u"/.tmp_proxy.mp4"_s;
        paths.workFolder = outDir + u"/.chunks"_s;
        const EncodeJob job = {
            path(clip), FileStamp::of(path(clip)), paths, probe(path(clip)).value(), QUuid(), preset, burnIn};
        const EncodeContext context = {
            currentSystemValues(),
            [this](const QUuid &, double progress, std::optional<double>) { m_progress.append(progress); },
            {}};
        const EncodeResult result =
            chunkSeconds > 0 ? runChunked(job, chunkSeconds, context) : runSinglePass(job, context);
        if (!result.success)
            qWarning("%s", qPrintable(result.stderrTail));
        const QStringList left =
            QDir(outDir).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        return left == QStringList{u"proxy.mp4"_s} ? final : QString();
    }

    QByteArray proxyFrame(const QString &proxy, int number) const
    {
        return grayFrame({u"-i"_s, proxy, u"-vf"_s, u"select=eq(n\\,%1)"_s.arg(number)});
    }

    /// What a frame has to look like: the first one of a clip that begins with these timecodes.
    QByteArray expectedFrame(const QString &name, const QString &srcTC, const QString &elapsedTC) const
    {
        const FilterInputs inputs = {.filename = name,
                                     .srcTC = srcTC,
                                     .elapsedTC = elapsedTC,
                                     .rate = u"25/1"_s,
                                     .fileDate = u"unavailable"_s,
                                     .preset = QualityPreset::standard};
        return grayFrame(
            words(u"-f lavfi -i color=gray:s=640x360:r=25 -filter_complex"_s) +
            QStringList{buildFilter(inputs, currentSystemValues().fontFile), u"-map"_s, u"[v]"_s});
    }

    QTemporaryDir m_folder;
    QList<double> m_progress;
};

QTEST_GUILESS_MAIN(TestRealEncodes)
#include "tst_real_encodes.moc"
