// Runs of the queue over stand-in tools: every outcome, and what is left on disk.

#include "media/failure_messages.h"
#include "platform/clip_lock.h"
#include "support/engine_case.h"

#include <QTest>
#include <QThread>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::testing;

class TestRun : public QObject, EngineCase
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }

    void clipsBecomeProxies()
    {
        const QUuid first = addClip(u"a.mov"_s);
        const QUuid unticked = addClip(u"b.mov"_s);
        const QUuid third = addClip(u"c.mxf"_s);
        m_engine->toggleSelected(unticked);

        QStringList labels; // of the first job, as an observer of each edit would see them
        connect(m_engine.get(), &BurnInEngine::willChange, this,
                [&] { labels.append(job(first).status.label()); });
        run(clipOf("93.44") + "when part_\nerr frame=9\\r\nend\nwrite-output\n");

        labels.erase(std::unique(labels.begin(), labels.end()), labels.end());
        QCOMPARE(labels, (QStringList{u"Queued"_s, u"Reading metadata…"_s, u"Encoding…"_s, u"Done"_s}));
        QCOMPARE(job(first).progress, 1.0);
        QVERIFY(job(unticked).status.isQueued());
        QVERIFY(job(third).status.isSuccessful());
        QCOMPARE(proxies(), (QStringList{u"a_proxy.mp4"_s, u"c_proxy.mp4"_s, u"manifest.csv"_s}));
        QCOMPARE(manifest().size(), 4); // header, two lines, and nothing after the last line feed
        QVERIFY(manifest()[1].startsWith("a.mov,a_proxy.mp4,00:00:00:00,25/1,93.44,0,unavailable,done,2"));
        QVERIFY(manifest()[2].startsWith("c.mxf,c_proxy.mp4,"));

        m_engine->toggleSelected(unticked);
        run(clipOf("5") + "write-output\n");
        QCOMPARE(manifest().size(), 5); // appended, no second header
    }

    void aRunTakesTheWholeQueue()
    {
        QVERIFY(QDir().mkpath(m_script->path(u"marrowcut_proxies"_s)));
        for (int number = 0; number < 300; ++number) {
            m_script->touch(u"%1.mov"_s.arg(number));
            m_script->touch(u"marrowcut_proxies/%1_proxy.mp4"_s.arg(number));
        }
        m_engine->enqueue({QUrl::fromLocalFile(m_script->folder())});
        addClip(u"kept.mov"_s);
        m_engine->toggleSelected(m_engine->jobs().last().id);
        run("exit 1\n");
        QCOMPARE(std::ranges::count(m_engine->jobs(), JobStatus::skipped(), &ProxyJob::status), 300);

        // Each clip is still in the list once when most of it has been cleared.
        m_engine->clearCompleted();
        for (const QString &name : {u"new.mov"_s, u"new.mov"_s, u"kept.mov"_s})
            addClip(name);
        QCOMPARE(m_engine->jobs().size(), 2);
    }

    void failedEncodeKeepsItsProgress()
    {
        const QUuid id = addClip(u"a.mov"_s);
        const QUuid next = addClip(u"b.mov"_s);
        run(clipOf("60") +
            "when a.mov\nerr frame=1 time=00:00:30.00 speed=3x\\rno space\\n\nexit 1\nend\nwrite-output\n");
        QCOMPARE(job(id).status, JobStatus::failed(u"encode error"_s));
        QCOMPARE(job(id).progress, 0.5);
        QVERIFY(!job(id).etaSeconds);
        QVERIFY(job(id).errorDetail->endsWith(u"no space"_s));
        QVERIFY(manifest()[1].contains(",failed: encode error,"));
        QCOMPARE(job(next).status, JobStatus::done()); // a failure never stops the run

        m_engine->retry(id);
        QVERIFY(job(id).status.isQueued() && job(id).progress == 0.0 && !job(id).errorDetail);
        run(clipOf("60") + "write-output\n");
        QCOMPARE(job(id).status, JobStatus::done());
        QTRY_COMPARE_WITH_TIMEOUT(m_notifications->requests().size(), 2, 60000);
        QCOMPARE(m_notifications->requests().first().body, u"1 done, 1 failed."_s);
        QCOMPARE(m_notifications->requests().last().body, u"2 files done."_s); // the whole list

        addClip(u"c.mov"_s);
        run("exit 1\n");
        m_engine->clearCompleted(); // what failed, too
        QVERIFY(m_engine->jobs().isEmpty());
    }

    void encoderIsChosenByDuration()
    {
        int pieces = 0; // of all clips up to the one
        for (const auto &[duration, more] :
             {std::pair("90.0", 0), std::pair("90.01", 2), std::pair("N/A", 0)}) {
            const QUuid id = addClip(u"a%1.mov"_s.arg(QLatin1String(duration).size()));
            run(clipOf(duration) + "note @/calls\nwhen part_\nerr frame=9\\r\nend\nwrite-output\n");
            QCOMPARE(job(id).status, JobStatus::done());
            QCOMPARE(m_script->contents(u"calls"_s).count("-ss\n"), pieces += more);
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
        row("named in quotes", "60",
            "when h264_nvenc\n" + failed + "err Error while opening encoder 'h264_nvenc'\\n\nexit 1\n" +
                works,
            {"h264_nvenc", "libx264"}, true);
        row("both fail", "60", failing, {"h264_nvenc", "libx264"}, false);
        row("something else fails", "60", failed + "err a.mov: No space left on device\\n\nexit 1\n",
            {"h264_nvenc"}, false);
    }

    void failedHardwareEncodeIsTriedInSoftware()
    {
        QFETCH(QByteArray, duration);
        QFETCH(QByteArray, script);
        QFETCH(bool, done);
        useEncoder(u"h264_nvenc"_s);
        const QUuid id = addClip(u"a.mov"_s);
        QList<double> progress;
        connect(m_engine.get(), &BurnInEngine::willChange, this, [&] { progress.append(job(id).progress); });
        run(clipOf(duration) + "note @/calls\n" + script);
        QCOMPARE(job(id).status.isSuccessful(), done);
        QByteArrayList encoders;
        const QByteArrayList arguments = m_script->contents(u"calls"_s).split('\n');
        for (qsizetype at = 0; at + 1 < arguments.size(); ++at) {
            if (arguments[at] == "-c:v")
                encoders.append(arguments[at + 1]);
        }
        QTEST(encoders, "encoders");
        const auto begun = std::ranges::find_if(progress, [](double value) { return value > 0; });
        QCOMPARE(std::find(begun, progress.end(), 0.0) != progress.end(), encoders.contains("libx264"));
        QCOMPARE(proxies().contains(u"a_proxy.mp4"_s), done);
        QCOMPARE(proxies().size(), done ? 2 : 1); // the manifest is there
        if (encoders.size() == 2 && !done)        // the first reason is kept
            QVERIFY(job(id).errorDetail->startsWith(u"[h264_nvenc @ 0x55] Out of memory\n"_s));
    }

    void whatStandsInTheWayIsFoundBeforeTheEncode()
    {
        const QUuid id = addClip(u"a.mov"_s);
        QVERIFY(QDir().mkpath(m_script->path(u"marrowcut_proxies/a_proxy.mp4/kept"_s)));
        run(clipOf("60") + "when -i\nnote @/encodes\nwrite-output\n");
        QCOMPARE(job(id).status, JobStatus::failed(u"encode error"_s));
        QVERIFY(job(id).errorDetail->contains(u"a_proxy.mp4"_s));
        QVERIFY(!m_script->contents(u"encodes"_s).contains("libx264"));
        QVERIFY(QFileInfo::exists(m_script->path(u"marrowcut_proxies/a_proxy.mp4/kept"_s)));
    }

    void folderThatCannotBeMadeIsNamed()
    {
        const QUuid id = addClip(u"a.mov"_s);
        m_script->touch(u"marrowcut_proxies"_s);
        run(clipOf("60") + "exit 1\n");
        QVERIFY(job(id).errorDetail->startsWith(media::folderNotCreated +
                                                m_script->path(u"marrowcut_proxies"_s)));
    }

    void clipOfAnotherProcessIsWaitedFor()
    {
        const QUuid held = addClip(u"a.mov"_s);
        const QUuid next = addClip(u"b.mov"_s);
        const QString folder = m_script->path(u"marrowcut_proxies"_s);
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
        QVERIFY(!m_script->contents(u"calls"_s).contains("a.mov"));
        QCOMPARE(job(next).status, JobStatus::done()); // held by nobody

        // What the other process has finished meanwhile is done already.
        lock = other("c_proxy.mp4");
        const QUuid finished = addClip(u"c.mov"_s);
        m_engine->start();
        QTRY_COMPARE_WITH_TIMEOUT(m_engine->waitingJob(), finished, 60000);
        m_script->touch(u"marrowcut_proxies/c_proxy.mp4"_s);
        lock.reset();
        awaitEnd();
        QCOMPARE(job(finished).status, JobStatus::skipped());
    }

    void quitBetweenTheProxyAndItsStatusLosesNoLine()
    {
        const QUuid id = addClip(u"a.mov"_s);
        m_script->set(clipOf("60") + "wait-for @/go\nwrite-output\n");
        m_engine->start();
        QTRY_VERIFY_WITH_TIMEOUT(job(id).status.isEncoding(), 60000);
        std::stop_source stopped; // who would have to wait is interrupted
        stopped.request_stop();
        QVERIFY_THROWS_EXCEPTION(Interrupted, ClipLock(
                                                  m_script->path(u"marrowcut_proxies"_s), u"a_proxy.mp4"_s,
                                                  [] {}, stopped.get_token()));
        m_script->touch(u"go"_s);
        while (!proxies().contains(u"a_proxy.mp4"_s)) // no event is processed meanwhile
            QThread::msleep(1);
        QVERIFY(m_engine->interrupt(std::chrono::minutes(1)));
        QCOMPARE(manifest().size(), 3);
        QVERIFY(manifest()[1].contains(",done,"));
    }

    void aRunIsOfWhatIsChosenAtItsStart()
    {
        const QUuid first = addClip(u"a.mov"_s);
        const QUuid removed = addClip(u"b.mov"_s);
        const QUuid unticked = addClip(u"c.mov"_s);
        const QUuid ticked = addClip(u"d.mov"_s);
        m_engine->toggleSelected(ticked);
        m_engine->toggleBurnIn(first);
        m_script->set(clipOf("60") + "when a.mov\nnote @/call\nwait-for @/go\nend\nwrite-output\n");
        m_engine->start();
        m_engine->setQualityPreset(QualityPreset::tiny); // before the run's thread could look
        QVERIFY(QualityPreset::saved(m_preferences) == QualityPreset::tiny);
        m_engine->toggleSelected(unticked);
        m_engine->toggleSelected(ticked);
        QTRY_VERIFY_WITH_TIMEOUT(job(first).status.isEncoding(), 60000);
        m_engine->removeFromQueue(first); // not queued any more: stays
        m_engine->removeFromQueue(removed);
        const QUuid added = addClip(u"e.mov"_s);
        m_script->touch(u"go"_s);
        awaitEnd();

        QVERIFY(job(first).status.isSuccessful() && job(unticked).status.isSuccessful());
        QVERIFY(job(ticked).status.isQueued() && job(added).status.isQueued());
        QVERIFY(!proxies().contains(u"b_proxy.mp4"_s));
        const QByteArray call = m_script->contents(u"call"_s);
        QVERIFY(call.contains("scale=960:") && !call.contains("drawtext"));
    }
};

QTEST_GUILESS_MAIN(TestRun)
#include "tst_run.moc"
