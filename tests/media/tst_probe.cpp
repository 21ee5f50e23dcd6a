#include "media/probe.h"
#include "support/stand_in_script.h"

#include <QTest>

#include <sys/stat.h>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::media;

class TestProbe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void readsItsSixAnswers()
    {
        m_script.set("when format_tags=timecode\nout \\n 01:02:03;04 \\nsecond\\nexit 1\nend\n"
                     "when v:0 stream=avg_frame_rate\nout 30000/1001\\n\nend\n"
                     "when csv=p=0\nout 1\\n 2\\t\\n\\n3,x\\n\nend\n"
                     "when format=duration\nout 12.345000\\n\nend\n"
                     "when creation_time\nout 2023-11-30T08:00:00.123Z\\n\nend\n");
        const auto meta = probe(u"/c.mov"_s);
        QVERIFY(meta);
        QCOMPARE(meta->tc, u"01:02:03;04"_s);
        QCOMPARE(meta->rate, u"30000/1001"_s);
        QCOMPARE(meta->audioCount, 3);
        QCOMPARE(meta->duration, 12.345);
        QCOMPARE(meta->fileDate, u"2023-11-30 08:00:00"_s);
    }

    void fallsBack()
    {
        m_script.set("note @/fewer\nwhen stream=avg_frame_rate\nout 25/1\\n\nend\nwhen format=duration\nout "
                     "N/A\\n\nend\n"
                     "when modification_date\nout 2024-03-05T14:22:10Z\\n\nend\n");
        const auto meta = probe(u"/c.mov"_s);
        QVERIFY(meta);
        QCOMPARE(meta->tc, u"00:00:00:00"_s);
        QCOMPARE(meta->audioCount, 0);
        QCOMPARE(meta->duration, 0.0);
        QCOMPARE(meta->fileDate, u"2024-03-05 14:22:10Z"_s);
        QCOMPARE(m_script.contents(u"fewer"_s).count("/c.mov"), 5);

        for (const QString &date : {u".7Z"_s, u"T.0Z"_s, QString()}) {
            const auto undated = metadataFrom({{}, u"25/1"_s, {}, {}, date, {}});
            QVERIFY(undated && !undated->hasFileDate);
            QCOMPARE(undated->fileDate, u"unavailable"_s);
        }
    }

    void failures()
    {
        m_script.set(
            "when a stream=index\nout 0\\n\nend\nwhen -show_format\nerr \\n moov atom not found \\n\nend\n");
        QVERIFY(!probe(u"/c.mov"_s));
        QCOMPARE(probeFailureDetail(u"/c.mov"_s), u"moov atom not found"_s);
        m_script.set("");
        QCOMPARE(probeFailureDetail(u"/c.mov"_s),
                 u"ffprobe could not find a valid video stream in this file."_s);
    }

    void pipeIsNotWaitedFor()
    {
        const QString pipe = m_script.path(u"pipe.mov"_s);
        QCOMPARE(mkfifo(pipe.toUtf8().constData(), 0600), 0);
        m_script.set("when stream=avg_frame_rate\nout 25/1\\n\nend\n"); // so says a tool that was asked
        QVERIFY(!probe(pipe));
        QCOMPARE(probeFailureDetail(pipe), u"This is not a file."_s);
    }

private:
    StandInScript m_script;
};

QTEST_GUILESS_MAIN(TestProbe)
#include "tst_probe.moc"
