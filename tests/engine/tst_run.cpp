// Runs of the queue over stand-in tools: every outcome, and what is left on disk.

#include "engine/burn_in_engine.h"
#include "engine/manifest.h"
#include "media/failure_messages.h"
#include "platform/clip_lock.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"
#include "support/stand_in_script.h"

#include <QDir>
#include <QTest>
#include <QThread>

#include <atomic>
#include <cstdlib>
#include <new>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace marrowcut;

namespace
{

/// Whether the next allocation on another thread than the main one fails.
std::atomic<bool> isOutOfMemory = false;

/// A probe's answers for a clip of the given duration; the encoder's part of the script follows.
QByteArray clipOf(const QByteArray &duration)
{
    return "when ffprobe stream=avg_frame_rate\nout 25/1\\n\nend\nwhen ffprobe format=duration\nout " +
           duration + "\\n\nend\nwhen ffprobe\nexit 0\nend\n";
}

} // namespace

// Under the thread sanitizer these would hide from it that Qt is the caller.
#ifndef __SANITIZE_THREAD__
void *operator new(std::size_t size)
{
    void *memory =
        isOutOfMemory && gettid() != getpid() && isOutOfMemory.exchange(false) ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}
#endif

class TestRun : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_engine.reset();
        m_script = std::make_unique<StandInScript>();
        m_notifications = std::make_unique<MemoryNotificationCenter>(true);
        m_engine = std::make_unique<BurnInEngine>(m_preferences, *m_notifications);
        useEncoder(QStringLiteral("libx264")); // whatever this machine has
    }

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
        m_engine->clearCompleted();
        QVERIFY(m_engine->jobs().isEmpty());
    }

    void memoryThatRunsOutFailsOneClip_data()
    {
        QTest::addColumn<QString>("label"); // after which it happens
        for (const char *label : {"Queued", "Reading metadata…", "Encoding…"})
            QTest::newRow(label) << QString::fromUtf8(label);
    }

    void memoryThatRunsOutFailsOneClip()
    {
#ifdef __SANITIZE_THREAD__
        QSKIP("No allocation can be made to fail here.");
#endif
        QFETCH(const QString, label);
        const QUuid id = addClip(QStringLiteral("a.mov"));
        const QUuid next = addClip(QStringLiteral("b.mov"));
        bool hasHappened = false;
        connect(m_engine.get(), &BurnInEngine::willChange, this, [&] {
            if (job(id).status.label() == label)
                isOutOfMemory = !std::exchange(hasHappened, true);
        });
        run(clipOf("60") + "write-output\n");
        QCOMPARE(job(id).status, JobStatus::failed(QStringLiteral("encode error")));
        QCOMPARE(job(id).errorDetail, media::outOfMemory);
        QCOMPARE(job(next).status, JobStatus::done());
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

    void onlyWhatIsQueuedAtThePressIsRun()
    {
        const QUuid chosen = addClip(QStringLiteral("a.mov"));
        const QUuid other = addClip(QStringLiteral("b.mov"));
        m_engine->toggleSelected(other);
        m_engine->toggleBurnIn(chosen);
        m_script->set(clipOf("60") + "note @/calls\nwrite-output\n");
        m_engine->start();
        m_engine->setQualityPreset(QualityPreset::tiny);
        m_engine->toggleSelected(chosen); // before the run's thread could look
        m_engine->toggleSelected(other);
        QTRY_VERIFY_WITH_TIMEOUT(!m_engine->isRunning(), 60000);
        QCOMPARE(job(chosen).status, JobStatus::done());
        QVERIFY(job(other).status.isQueued());
        QVERIFY(m_script->contents(QStringLiteral("calls")).contains("scale=960:"));
        QVERIFY(!m_script->contents(QStringLiteral("calls")).contains("drawtext"));
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
        QTRY_VERIFY_WITH_TIMEOUT(!m_engine->isRunning(), 60000);
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
        QTRY_VERIFY_WITH_TIMEOUT(!m_engine->isRunning(), 60000);
        QCOMPARE(job(finished).status, JobStatus::skipped());
    }

    void manifestLinesOfSeveralWritersStayWhole()
    {
        const OutputPaths paths =
            OutputPaths::forSource(QUrl::fromLocalFile(m_script->path(QStringLiteral("a.mov"))));
        QVERIFY(QDir().mkpath(paths.outDir));
        const QByteArray line = QByteArray(300, 'x') + '\n';
        QList<pid_t> writers; // processes: the lock is theirs
        for (int writer = 0; writer < 4; ++writer) {
            const pid_t child = fork();
            QVERIFY(child >= 0);
            if (child == 0) {
                for (int count = 0; count < 100; ++count)
                    Manifest::append(paths.manifest, QString::fromLatin1(line));
                _exit(0);
            }
            writers.append(child);
        }
        for (const pid_t writer : writers) {
            int status = -1;
            QCOMPARE(waitpid(writer, &status, 0), writer);
            QCOMPARE(status, 0); // it reached its end
        }
        QList<QByteArray> lines = manifest();
        QVERIFY(lines.takeFirst().startsWith("source_filename,"));
        QCOMPARE(lines.takeLast(), QByteArray());
        QCOMPARE(lines, QList<QByteArray>(400, line.chopped(1)));
    }

    void manifestThatIsRemovedUnderItsLockIsMadeAnew()
    {
        const OutputPaths paths =
            OutputPaths::forSource(QUrl::fromLocalFile(m_script->path(QStringLiteral("a.mov"))));
        QVERIFY(QDir().mkpath(paths.outDir));
        const QByteArray path = QFile::encodeName(paths.manifest);
        const QByteArray locked = QFile::encodeName(m_script->path(QStringLiteral("locked")));
        const pid_t child = fork(); // the lock is a process's
        if (child == 0) {
            struct flock whole = {};
            whole.l_type = F_WRLCK;
            const int file = open(path.constData(), O_RDWR | O_CREAT, 0600);
            if (fcntl(file, F_SETLK, &whole) != 0 || open(locked.constData(), O_CREAT, 0600) < 0)
                _exit(1);
            QThread::msleep(100); // for the other to find the lock, which nothing reports
            _exit(unlink(path.constData()));
        }
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(QFile::decodeName(locked)), 60000);
        Manifest::append(paths.manifest, QStringLiteral("line\n"));
        int status = -1;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(status, 0);
        QCOMPARE(manifest().mid(1), (QList<QByteArray>{"line", ""}));
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

    void queueEditsDuringARun()
    {
        const QUuid first = addClip(QStringLiteral("a.mov"));
        const QUuid removed = addClip(QStringLiteral("b.mov"));
        const QUuid unticked = addClip(QStringLiteral("c.mov"));
        m_script->set(clipOf("60") + "when a.mov\nwait-for @/go\nend\nwrite-output\n");
        m_engine->start();
        m_engine->start(); // a run is going on: nothing
        QTRY_VERIFY_WITH_TIMEOUT(job(first).status.isEncoding(), 60000);
        m_engine->removeFromQueue(first); // not queued any more: stays
        m_engine->removeFromQueue(removed);
        m_engine->toggleSelected(unticked);
        const QUuid added = addClip(QStringLiteral("d.mov"));
        m_script->touch(QStringLiteral("go"));
        QTRY_VERIFY_WITH_TIMEOUT(!m_engine->isRunning(), 60000);

        QVERIFY(job(first).status.isSuccessful());
        QVERIFY(job(unticked).status.isSuccessful()); // chosen when the run began
        QVERIFY(job(added).status.isQueued());
        QVERIFY(!proxies().contains(QStringLiteral("b_proxy.mp4")));
    }

    void notificationCountsTheWholeList()
    {
        addClip(QStringLiteral("a.mov"));
        run(clipOf("60") + "exit 1\n");
        addClip(QStringLiteral("b.mov"));
        run(clipOf("60") + "write-output\n");
        QTRY_COMPARE_WITH_TIMEOUT(m_notifications->requests().size(), 2, 60000);
        QCOMPARE(m_notifications->requests().last().title, QStringLiteral("Marrowcut"));
        QCOMPARE(m_notifications->requests().last().body, QStringLiteral("1 done, 1 failed."));
        QCOMPARE(m_notifications->requests().last().identifier.size(), 36);
    }

private:
    void useEncoder(const QString &name)
    {
        m_engine->setEncoderChoice(media::EncoderChoice(media::VideoEncoder{.name = name}));
    }

    QUuid addClip(const QString &name)
    {
        m_script->touch(name);
        m_engine->enqueue({QUrl::fromLocalFile(m_script->path(name))});
        return m_engine->jobs().last().id;
    }

    const ProxyJob &job(const QUuid &id) const
    {
        return *std::find_if(m_engine->jobs().begin(), m_engine->jobs().end(),
                             [&id](const ProxyJob &candidate) { return candidate.id == id; });
    }

    void run(const QByteArray &script)
    {
        m_script->set(script);
        m_engine->start();
        m_engine->start(); // changes nothing during a run
        QVERIFY(m_engine->isRunning());
        QTRY_VERIFY_WITH_TIMEOUT(!m_engine->isRunning(), 60000);
    }

    QList<QByteArray> manifest() const
    {
        return m_script->contents(QStringLiteral("marrowcut_proxies/manifest.csv")).split('\n');
    }

    QStringList proxies() const
    {
        return QDir(m_script->path(QStringLiteral("marrowcut_proxies")))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::unique_ptr<StandInScript> m_script;
    MemoryPreferenceStore m_preferences;
    std::unique_ptr<MemoryNotificationCenter> m_notifications;
    std::unique_ptr<BurnInEngine> m_engine;
};

QTEST_GUILESS_MAIN(TestRun)
#include "tst_run.moc"
