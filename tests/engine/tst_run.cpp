// Runs of the queue over stand-in tools: every outcome, and what is left on disk.

#include "media/failure_messages.h"
#include "platform/clip_lock.h"
#include "support/engine_case.h"

#include <QTest>
#include <QThread>

using namespace marrowcut;
using namespace marrowcut::testing;

class TestRun : public QObject, EngineCase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }

    void clipsBecomeProxies()
    {
        const QUuid first = addClip(QStringLiteral("a.mov"));
        const QUuid unticked = addClip(QStringLiteral("b.mov"));
        const QUuid third = addClip(QStringLiteral("c.mxf"));
        m_engine->toggleSelected(unticked);

        QStringList labels; // of the first job, as an observer of each edit would see them
        connect(m_engine.get(), &BurnInEngine::willChange, this,
                [&] { labels.append(job(first).status.label()); });
        run(clipOf("93.44") + "when part_\nerr frame=9\\r\nend\nwrite-output\n");

        labels.erase(std::unique(labels.begin(), labels.end()), labels.end());
        QCOMPARE(labels, (QStringList{QStringLiteral("Queued"), QStringLiteral("Reading metadata…"),
                                      QStringLiteral("Encoding…"), QStringLiteral("Done")}));
        QCOMPARE(job(first).progress, 1.0);
        QVERIFY(job(unticked).status.isQueued());
        QVERIFY(job(third).status.isSuccessful());
        QCOMPARE(proxies(), (QStringList{QStringLiteral("a_proxy.mp4"), QStringLiteral("c_proxy.mp4"),
                                         QStringLiteral("manifest.csv")}));
        QCOMPARE(manifest().size(), 4); // header, two lines, and nothing after the last line feed
        QVERIFY(manifest()[1].startsWith("a.mov,a_proxy.mp4,00:00:00:00,25/1,93.44,0,unavailable,done,2"));
        QVERIFY(manifest()[2].startsWith("c.mxf,c_proxy.mp4,"));

        m_engine->toggleSelected(unticked);
        run(clipOf("5") + "write-output\n");
        QCOMPARE(manifest().size(), 5); // appended, no second header
    }

    void failedEncodeKeepsItsProgress()
    {
        const QUuid id = addClip(QStringLiteral("a.mov"));
        const QUuid next = addClip(QStringLiteral("b.mov"));
        run(clipOf("60") +
            "when a.mov\nerr frame=1 time=00:00:30.00 speed=3x\\rno space\\n\nexit 1\nend\nwrite-output\n");
        QCOMPARE(job(id).status, JobStatus::failed(QStringLiteral("encode error")));
        QCOMPARE(job(id).progress, 0.5);
        QVERIFY(!job(id).etaSeconds);
        QVERIFY(job(id).errorDetail->endsWith(QStringLiteral("no space")));
        QVERIFY(manifest()[1].contains(",failed: encode error,"));
        QCOMPARE(job(next).status, JobStatus::done()); // a failure never stops the run

        m_engine->retry(id);
        QVERIFY(job(id).status.isQueued() && job(id).progress == 0.0 && !job(id).errorDetail);
        run(clipOf("60") + "write-output\n");
        QCOMPARE(job(id).status, JobStatus::done());
        QTRY_COMPARE_WITH_TIMEOUT(m_notifications->requests().size(), 2, 60000);
        QCOMPARE(m_notifications->requests().first().body, QStringLiteral("1 done, 1 failed."));
        QCOMPARE(m_notifications->requests().last().body, QStringLiteral("2 files done.")); // the whole list
        m_engine->clearCompleted();
        QVERIFY(m_engine->jobs().isEmpty());
    }

    void encoderIsChosenByDuration()
    {
        int pieces = 0; // of all clips up to the one
        for (const auto &[duration, more] :
             {std::pair("90.0", 0), std::pair("90.01", 2), std::pair("N/A", 0)}) {
            const QUuid id = addClip(QStringLiteral("a%1.mov").arg(QLatin1String(duration).size()));
            run(clipOf(duration) + "note @/calls\nwhen part_\nerr frame=9\\r\nend\nwrite-output\n");
            QCOMPARE(job(id).status, JobStatus::done());
            QCOMPARE(m_script->contents(QStringLiteral("calls")).count("-ss\n"), pieces += more);
        }
    }

    void failedHardwareEncodeIsTriedInSoftware_data()
    {
        QTest::addColumn<QByteArray>("duration");
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QByteArrayList>("encoders"); // of each call that encodes
        QTest::addColumn<bool>("done");
        const auto row = [](const char *name, const char *duration, const QByteArray &script,
                            const QByteArrayList &encoders, bool done) {
            QTest::newRow(name) << QByteArray(duration) << script << encoders << done;
        };
        const QByteArray failed = "write-output\nerr frame=9 time=00:00:01.00\\r\n";
        const QByteArray failing = failed + "err [h264_nvenc \\x40 0x55] Out of memory\\n\nexit 1\n";
        const QByteArray works = "end\nerr frame=9\\r\nwrite-output\n";
        row("it works", "60", works, {"h264_nvenc"}, true);
        row("single pass", "60", "when h264_nvenc\n" + failing + works, {"h264_nvenc", "libx264"}, true);
        row("second piece", "100", "when h264_nvenc part_0001\n" + failing + works,
            {"h264_nvenc", "h264_nvenc", "libx264", "libx264"}, true);
        row("both fail", "60", failing, {"h264_nvenc", "libx264"}, false);
        row("something else fails", "60", failed + "err a.mov: No space left on device\\n\nexit 1\n",
            {"h264_nvenc"}, false);
    }

    void failedHardwareEncodeIsTriedInSoftware()
    {
        QFETCH(QByteArray, duration);
        QFETCH(QByteArray, script);
        QFETCH(bool, done);
        useEncoder(QStringLiteral("h264_nvenc"));
        const QUuid id = addClip(QStringLiteral("a.mov"));
        run(clipOf(duration) + "note @/calls\n" + script);
        QCOMPARE(job(id).status.isSuccessful(), done);
        QByteArrayList encoders;
        const QByteArrayList arguments = m_script->contents(QStringLiteral("calls")).split('\n');
        for (qsizetype at = 0; at + 1 < arguments.size(); ++at) {
            if (arguments[at] == "-c:v")
                encoders.append(arguments[at + 1]);
        }
        QTEST(encoders, "encoders");
        QCOMPARE(proxies().contains(QStringLiteral("a_proxy.mp4")), done);
        QCOMPARE(proxies().size(), done ? 2 : 1); // the manifest is there
        if (encoders.size() == 2 && !done)        // the first reason is kept
            QVERIFY(job(id).errorDetail->startsWith(QStringLiteral("[h264_nvenc @ 0x55] Out of memory\n")));
    }

    void whatStandsInTheWayIsFoundBeforeTheEncode()
    {
        const QUuid id = addClip(QStringLiteral("a.mov"));
        QVERIFY(QDir().mkpath(m_script->path(QStringLiteral("marrowcut_proxies/a_proxy.mp4/kept"))));
        run(clipOf("60") + "when -i\nnote @/encodes\nwrite-output\n");
        QCOMPARE(job(id).status, JobStatus::failed(QStringLiteral("encode error")));
        QVERIFY(job(id).errorDetail->contains(QStringLiteral("a_proxy.mp4")));
        QVERIFY(!m_script->contents(QStringLiteral("encodes")).contains("libx264"));
        QVERIFY(QFileInfo::exists(m_script->path(QStringLiteral("marrowcut_proxies/a_proxy.mp4/kept"))));
    }

    void folderThatCannotBeMadeIsNamed()
    {
        const QUuid id = addClip(QStringLiteral("a.mov"));
        m_script->touch(QStringLiteral("marrowcut_proxies"));
        run(clipOf("60") + "exit 1\n");
        QVERIFY(job(id).errorDetail->startsWith(media::folderNotCreated +
                                                m_script->path(QStringLiteral("marrowcut_proxies"))));
    }

    void clipOfAnotherProcessIsWaitedFor()
    {
        const QUuid held = addClip(QStringLiteral("a.mov"));
        const QUuid next = addClip(QStringLiteral("b.mov"));
        const QString folder = m_script->path(QStringLiteral("marrowcut_proxies"));
        QVERIFY(QDir().mkpath(folder));
        const auto other = [&](const char *proxy) {
            return std::make_unique<ClipLock>(
                folder, QLatin1String(proxy), [] {}, std::stop_token());
        };
        auto lock = other("a_proxy.mp4");
        m_script->set(clipOf("60") + "note @/calls\nwrite-output\n");
        m_engine->start();
        QTRY_COMPARE_WITH_TIMEOUT(m_engine->waitingJob(), held, 60000);
        QVERIFY(job(held).status.isQueued());
        m_engine->removeFromQueue(held); // and so it is gone, whatever happens to the lock
        lock.reset();
        awaitEnd();
        QCOMPARE(m_engine->waitingJob(), std::nullopt);
        QVERIFY(!m_script->contents(QStringLiteral("calls")).contains("a.mov"));
        QCOMPARE(job(next).status, JobStatus::done()); // held by nobody

        // What the other process has finished meanwhile is done already.
        lock = other("c_proxy.mp4");
        const QUuid finished = addClip(QStringLiteral("c.mov"));
        m_engine->start();
        QTRY_COMPARE_WITH_TIMEOUT(m_engine->waitingJob(), finished, 60000);
        m_script->touch(QStringLiteral("marrowcut_proxies/c_proxy.mp4"));
        lock.reset();
        awaitEnd();
        QCOMPARE(job(finished).status, JobStatus::skipped());
    }

    void quitBetweenTheProxyAndItsStatusLosesNoLine()
    {
        const QUuid id = addClip(QStringLiteral("a.mov"));
        m_script->set(clipOf("60") + "wait-for @/go\nwrite-output\n");
        m_engine->start();
        QTRY_VERIFY_WITH_TIMEOUT(job(id).status.isEncoding(), 60000);
        m_script->touch(QStringLiteral("go"));
        while (!proxies().contains(QStringLiteral("a_proxy.mp4"))) // no event is processed meanwhile
            QThread::msleep(1);
        QVERIFY(m_engine->interrupt(std::chrono::minutes(1)));
        QCOMPARE(manifest().size(), 3);
        QVERIFY(manifest()[1].contains(",done,"));
    }

    void aRunIsOfWhatIsChosenAtItsStart()
    {
        const QUuid first = addClip(QStringLiteral("a.mov"));
        const QUuid removed = addClip(QStringLiteral("b.mov"));
        const QUuid unticked = addClip(QStringLiteral("c.mov"));
        const QUuid ticked = addClip(QStringLiteral("d.mov"));
        m_engine->toggleSelected(ticked);
        m_engine->toggleBurnIn(first);
        m_script->set(clipOf("60") + "when a.mov\nnote @/call\nwait-for @/go\nend\nwrite-output\n");
        m_engine->start();
        m_engine->setQualityPreset(QualityPreset::tiny); // before the run's thread could look
        m_engine->toggleSelected(unticked);
        m_engine->toggleSelected(ticked);
        QTRY_VERIFY_WITH_TIMEOUT(job(first).status.isEncoding(), 60000);
        m_engine->removeFromQueue(first); // not queued any more: stays
        m_engine->removeFromQueue(removed);
        const QUuid added = addClip(QStringLiteral("e.mov"));
        m_script->touch(QStringLiteral("go"));
        awaitEnd();

        QVERIFY(job(first).status.isSuccessful() && job(unticked).status.isSuccessful());
        QVERIFY(job(ticked).status.isQueued() && job(added).status.isQueued());
        QVERIFY(!proxies().contains(QStringLiteral("b_proxy.mp4")));
        const QByteArray call = m_script->contents(QStringLiteral("call"));
        QVERIFY(call.contains("scale=960:") && !call.contains("drawtext"));
    }
};

QTEST_GUILESS_MAIN(TestRun)
#include "tst_run.moc"
