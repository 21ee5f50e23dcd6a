#include "engine/model/output_paths.h"
#include "media/encoders.h"
#include "media/failure_messages.h"
#include "media/output_files.h"
#include "support/stand_in_script.h"

#include <QDir>
#include <QTest>
#include <QtEndian>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::media;

using Published = std::pair<double, std::optional<double>>; // progress and remaining time

class TestEncoders : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_script = std::make_unique<StandInScript>();
        QVERIFY(QDir().mkpath(out()));
        m_published.clear();
    }

    void singlePassFailureLeavesNothing()
    {
        const QByteArray noSpace = "err No space left on device\\n\n";
        for (const QByteArray &script :
             {"write-output\n" + noSpace + "exit 1\n",
              "write-output\n" + noSpace + "err frame=    0 fps=0.0 time=N/A \\r\n", // no frame
              "write-torn\n" + noSpace}) {
            const EncodeResult result = singlePass(script);
            QVERIFY(!result.success);
            QVERIFY(result.stderrTail.startsWith(u"No space left on device"_s));
            QCOMPARE(outputs(), QStringList());
        }
    }

    void singlePassProgress()
    {
        const QByteArray script =
            "err frame=1 time=00:00:30.00 speed=3x\\rx\\rframe=1 time=00:01:05.00 speed=2x\\r\n"
            "err frame=1 time=00:00:10.00 speed=N/A\\rframe=1 time=N/A speed=1x\\r\nwrite-output\n";
        m_script->touch(u"out/A.1_proxy.mp4"_s); // an old one, whose place is taken
        QVERIFY(singlePass(script).success);
        QCOMPARE(m_script->contents(u"out/A.1_proxy.mp4"_s).size(), 16);
        QCOMPARE(outputs(), QStringList{u"A.1_proxy.mp4"_s});
        QCOMPARE(m_published, (QList<Published>{{0.5, 10.0}, {1.0, 0.0}, {10.0 / 60, std::nullopt}}));
        m_published.clear();
        singlePass(script, 0);
        QVERIFY(m_published.isEmpty());
    }

    void pieceProgress()
    {
        chunked("when part_0001\nerr frame=9 time=00:00:45.00 speed=3x\\r\nend\nwrite-output\n", 200);
        QCOMPARE(m_published, (QList<Published>{{0.5, 45.0}}));
        for (const auto &[duration, count] :
             {std::pair(90.5, 2.0), std::pair(180.0, 2.0), std::pair(180.01, 3.0)}) {
            m_published.clear();
            chunked("when part_0000\nerr frame=9 time=00:01:30.00\\r\nend\nwrite-output\n", duration);
            QCOMPARE(m_published, (QList<Published>{{1 / count, std::nullopt}}));
        }
    }

    void failedPieceStopsTheRun()
    {
        const EncodeResult result = chunked(
            "note @/calls\nwrite-output\nwhen part_0002\nerr bad\\n\nexit 1\nend\nerr frame=9\\r\n", 450);
        QVERIFY(!result.success);
        QCOMPARE(result.stderrTail, u"frame=9\nframe=9\nbad"_s);
        QCOMPARE(m_script->contents(u"calls"_s).count("-ss\n"), 3);
        QCOMPARE(outputs(), QStringList{u".chunks_A.1"_s});
        QCOMPARE(QDir(out(u".chunks_A.1"_s)).entryList(QDir::Files).size(), 3);

        // The next run begins afresh and clears up.
        QVERIFY(chunked("when part_\nerr frame=9\\r\nend\nwrite-output\n", 100).success);
        QCOMPARE(outputs(), QStringList{u"A.1_proxy.mp4"_s});
    }

    void failedJoinKeepsTheParts()
    {
        const EncodeResult result =
            chunked("write-output\nwhen concat\nerr one\\n\\ntwo\nexit 1\nend\nerr frame=9\\r\n", 100);
        QVERIFY(!result.success);
        QCOMPARE(result.stderrTail, u"frame=9\nframe=9\none\ntwo"_s);
        QCOMPARE(outputs(), (QStringList{u".chunks_A.1"_s, u".tmp_A.1_proxy.mp4"_s}));
        QCOMPARE(m_script->contents(u"out/.chunks_A.1/concat.txt"_s),
                 "file 'part_0000.mp4'\nfile 'part_0001.mp4'\n");
    }

    void pieceWithoutFramesIsLeftOut()
    {
        const QByteArray first = "file 'part_0000.mp4'\n";
        for (const auto &[script, list] :
             {std::pair("when part_0001\nerr frame=    1 x\\rframe=    0 fps=0.0\\n\nend\n"
                        "when part_0000\nerr frame=9\\r\nend\n",
                        first),
              // without statistics, by its streams
              std::pair("when ffprobe part_0000\nout 0\\n\nend\n", first),
              // no piece has frames: there is nothing to join
              std::pair("when part_\nerr frame=    0\\n\nend\n", QByteArray())}) {
            chunked(script +
                        QByteArray("when ffprobe\nexit 0\nend\nwrite-output\nwhen concat\nexit 1\nend\n"),
                    90.02);
            QCOMPARE(m_script->contents(u"out/.chunks_A.1/concat.txt"_s), list);
        }
    }

    void absurdDurationEndsTheRun()
    {
        const QByteArray nothing = "when part_\nerr frame=    0 time=N/A\\r\nend\n";
        const QByteArray first = "when part_0000\nerr frame=9\\r\nend\n";
        QVERIFY(chunked("note @/calls\nwrite-output\n" + nothing + first, 2e9).success);
        QCOMPARE(m_script->contents(u"calls"_s).count("\n-ss\n"), 41);
    }

    void readErrorIsAFailureInSpiteOfTheExitStatus()
    {
        // The line is pushed out of the tail by what follows it.
        const QByteArray error =
            "err /f/A.1.mxf: Input/output error\\n\n" + QByteArray("err more\\n\n").repeated(30);
        const QByteArray frames = "when part_\nerr frame=9\\r\nend\n";
        const EncodeResult result = singlePass("write-output\n" + error);
        QVERIFY(!result.success && !result.stderrTail.contains(u"Input/output error"_s));
        QCOMPARE(outputs(), QStringList());
        QVERIFY(!chunked("write-output\n" + frames + "when part_0001\n" + error + "end\n", 200).success);
        QVERIFY(!chunked("write-output\n" + frames + "when concat\n" + error + "end\n", 200).success);
        const QByteArray missingPiece = "err [concat \\x40 0x1] Impossible to open '/f/part_0001.mp4'\\n\n";
        QVERIFY(!chunked("write-output\n" + frames + "when concat\n" + missingPiece + "end\n", 200).success);
        // The same words within a path mean nothing.
        QVERIFY(singlePass("write-output\nerr /f/Input/output error/A.1.mxf: odd\\n\n").success);
    }

    void signalIsNamed()
    {
        const EncodeResult result = singlePass("write-output\nerr frame=9\\r\nsignal 9\n");
        QVERIFY(!result.success);
        QCOMPARE(result.stderrTail, u"frame=9\nffmpeg was ended by signal 9 (Killed)."_s);
    }

    void replacedSourceFails()
    {
        m_script->touch(u"A.1.mxf"_s);
        const QByteArray frames = "when part_\nerr frame=9\\r\nend\nwrite-output\nnote @/calls\n";
        int pieces = 0;
        for (const auto &[part, more] : {std::pair("part_0001", 2), std::pair("part_0003", 4)}) {
            const EncodeResult result = chunked(frames + "when " + part + "\nnote @/A.1.mxf\nend\n", 300);
            QVERIFY(!result.success);
            QVERIFY(result.stderrTail.endsWith(u"replaced while it was being encoded."_s));
            QCOMPARE(m_script->contents(u"calls"_s).count("-ss\n"), pieces += more);
        }

        QFile clip(m_script->path(u"A.1.mxf"_s)); // one of the same size
        QVERIFY(clip.open(QIODevice::ReadWrite));
        const FileStamp stamp = FileStamp::of(clip.fileName());
        QVERIFY(clip.setFileTime(QDateTime::currentDateTime().addSecs(-60), QFile::FileModificationTime));
        QVERIFY(!(FileStamp::of(clip.fileName()) == stamp));
    }

    void filesOfMoreThanFourGigabytesAreJudged()
    {
        constexpr qint64 contentSize = 5'000'000'000;
        QFile file(out(u"large.mp4"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QByteArray head("\0\0\0\x01mdat", 8);
        head.resize(16);
        qToBigEndian(contentSize, head.data() + 8);
        file.write(head);
        QVERIFY(file.resize(contentSize) && file.seek(contentSize)); // takes no room on the disk
        file.write("\0\0\0\x08moov", 8);
        file.close();
        QVERIFY(isFinishedMp4(file.fileName()));
        QVERIFY(file.resize(contentSize - 1));
        QVERIFY(!isFinishedMp4(file.fileName()));
    }

    void whatCannotBeMadeOrMovedIsNamed()
    {
        QVERIFY(QDir().mkpath(out(u"A.1_proxy.mp4/kept"_s)));
        const EncodeResult moved = singlePass("write-output\n");
        QVERIFY(!moved.success);
        QVERIFY(moved.stderrTail.startsWith(proxyNotMoved));
        QVERIFY(QFile::exists(out(u"A.1_proxy.mp4/kept"_s)));

        QVERIFY(QDir(out()).removeRecursively());
        m_script->touch(u"out"_s); // no folder can be made in it
        const EncodeResult made = chunked("note @/calls\n", 100);
        QVERIFY(!made.success);
        QVERIFY(made.stderrTail.startsWith(folderNotCreated));
        QCOMPARE(m_script->contents(u"calls"_s), QByteArray());
    }

private:
    QString out(const QString &name = {}) const { return m_script->path(u"out/"_s + name); }

    EncodeJob job(double duration) const
    {
        const QString source = m_script->path(u"A.1.mxf"_s);
        OutputPaths paths = OutputPaths::forSource(QUrl::fromLocalFile(source));
        for (QString *path : {&paths.outDir, &paths.finalOutput, &paths.tmpOutput, &paths.workFolder})
            path->replace(u"/marrowcut_proxies"_s, u"/out"_s);
        return {source,
                FileStamp::of(source),
                paths,
                {u"01:00:00:00"_s, u"25/1"_s, 1, duration, u"unavailable"_s},
                QUuid::createUuid(),
                QualityPreset::standard,
                true};
    }

    EncodeContext context()
    {
        const auto publish = [this](const QUuid &, double progress, std::optional<double> eta) {
            m_published.append({progress, eta});
        };
        return {linuxValues(u"/f.ttf"_s), publish, {}};
    }

    EncodeResult singlePass(const QByteArray &script, double duration = 60)
    {
        m_script->set(script);
        return runSinglePass(job(duration), context());
    }

    EncodeResult chunked(const QByteArray &script, double duration)
    {
        m_script->set(script);
        return runChunked(job(duration), 90, context());
    }

    QStringList outputs() const
    {
        return QDir(out()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::unique_ptr<StandInScript> m_script;
    QList<Published> m_published;
};

QTEST_GUILESS_MAIN(TestEncoders)
#include "tst_encoders.moc"
