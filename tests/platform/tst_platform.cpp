#include "platform/background_query.h"
#include "platform/clip_lock.h"
#include "platform/main_thread_queue.h"
#include "platform/outside_text.h"
#include "platform/resources.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>
#include <latch>
#include <thread>

using namespace marrowcut;
using namespace Qt::StringLiterals;

class TestPlatform : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void mainThreadWorkKeepsItsOrder()
    {
        MainThreadQueue queue;
        QList<int> order;
        bool onMain = true;
        std::jthread worker([&] {
            const auto note = [&](int number) {
                onMain = onMain && QThread::currentThread() == thread();
                order.append(number);
            };
            queue.post([&] { note(1); });
            queue.performAndWait([&] { note(2); });
            queue.post([&] { note(3); });
            queue.performAndWait([&] { note(4); });
        });
        QTRY_COMPARE_WITH_TIMEOUT(order.size(), 4, 60000);
        QCOMPARE(order, (QList<int>{1, 2, 3, 4}));
        QVERIFY(onMain);
    }

    void closingReleasesAWaitingThread()
    {
        MainThreadQueue queue;
        std::latch begun(1);
        bool workDone = false;
        bool interrupted = false;
        std::thread worker([&] {
            begun.count_down();
            try {
                queue.performAndWait([&] { workDone = true; });
            } catch (const Interrupted &) {
                interrupted = true;
            }
        });
        begun.wait();
        queue.close(); // no event loop ran: the worker waits, or is about to
        worker.join();
        QCoreApplication::processEvents();
        QVERIFY(interrupted);
        QVERIFY(!workDone);
    }

    void queryDeliversOnceAndNeverBlocks()
    {
        BackgroundQuery<int> query;
        QList<std::optional<int>> delivered;
        const auto take = [&](const std::optional<int> &result) { delivered.append(result); };
        query.start([](const std::stop_token &) { return 1; }, take);
        query.start([](const std::stop_token &) { return 2; }, take); // replaces the first
        QTRY_COMPARE_WITH_TIMEOUT(delivered, (QList<std::optional<int>>{2}), 60000);

        // A thread that the system holds: it hears no stop request.
        const auto held = std::make_shared<std::latch>(1);
        const auto hang = [held](const std::stop_token &) {
            held->wait();
            return 3;
        };
        query.start(hang, take, std::chrono::milliseconds(1));
        QTRY_COMPARE_WITH_TIMEOUT(delivered.size(), 2, 60000);
        QCOMPARE(delivered.last(), std::nullopt);
        query.start(hang, take);
        QVERIFY(!query.cancel(std::chrono::milliseconds(1)));
        query.start([](const std::stop_token &) -> int { throw Interrupted(); }, take);
        QTRY_COMPARE_WITH_TIMEOUT(delivered.size(), 3, 60000);
        QCOMPARE(delivered.last(), std::nullopt);
        held->count_down();
    }

    void versionKeys()
    {
        const QTemporaryDir folder;
        QCOMPARE(versionText(folder.path()), u"1.0 (1)"_s);
        QFile file(folder.filePath(u"version.ini"_s));
        for (const auto &[build, shown] : {std::pair("\"41\"", u"2.3 (41)"_s), {"4,1", u"2.3 (1)"_s}}) {
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("[General]\nCFBundleShortVersionString=2.3\nCFBundleVersion=" + QByteArray(build) +
                       '\n');
            file.close();
            QCOMPARE(versionText(folder.path()), shown);
        }
        QVERIFY(QFileInfo::exists(resourceFolder() + u"/version.ini"_s));
    }

    void utf8IsStrict()
    {
        QCOMPARE(decodeUtf8("é"), u"é"_s);
        QCOMPARE(decodeUtf8("\xEF\xBB\xBFx").value().toUtf8(), QByteArray("\xEF\xBB\xBFx"));
        for (const char *invalid : {"\xFF", "a\xC3", "\xED\xA0\x80", "\xC0\xAF"})
            QVERIFY(!decodeUtf8(invalid));
    }

    void clipLockKeepsOthersOut()
    {
        const QTemporaryDir folder;
        const QString clip = u"a_proxy.mp4"_s;
        const auto ignore = [] {};
        std::stop_source source;
        auto held = std::make_unique<ClipLock>(folder.path(), clip, ignore, source.get_token());
        QVERIFY(!held->hasWaited());
        std::stop_source stopped; // who would have to wait is interrupted
        stopped.request_stop();
        QVERIFY(!ClipLock(folder.path(), u"b_proxy.mp4"_s, ignore, stopped.get_token()).hasWaited());

        // By another way to the same folder.
        const QString link = u"%1-link"_s.arg(folder.path());
        QVERIFY(QFile::link(folder.path(), link));
        std::atomic<bool> entered = false;
        std::latch waits(1);
        std::jthread other([&] {
            const ClipLock waiting(link, clip, [&] { waits.count_down(); }, {});
            entered = true;
        });
        QTRY_VERIFY_WITH_TIMEOUT(waits.try_wait() || entered, 60000);
        source.request_stop();
        QVERIFY_THROWS_EXCEPTION(Interrupted, ClipLock(folder.path(), clip, ignore, source.get_token()));
        QVERIFY(!entered);
        held.reset();
        other.join();
        QVERIFY(QFile::remove(link));
        QVERIFY(!ClipLock(folder.filePath(u"none"_s), clip, ignore, {}).hasWaited()); // free
    }
};

QTEST_GUILESS_MAIN(TestPlatform)
#include "tst_platform.moc"
