#include "support/staged_engine.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace marrowcut;
using namespace Qt::StringLiterals;

namespace
{

QString clip(int number)
{
    return u"/clips/%1.mxf"_s.arg(number);
}

} // namespace

class QueueViewModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manyEditsAreOneRefreshAndAreSeenAfterwards()
    {
        StagedEngine queue;
        QueueViewModel &shown = *queue.viewModel();
        for (int number = 0; number < 1000; ++number)
            queue.add(clip(number));
        QTRY_COMPARE_WITH_TIMEOUT(shown.jobs()->rowCount(), 1000, 60000);
        QSignalSpy changed(&shown, &QueueViewModel::summaryChanged);
        bool allSelected = true;
        connect(&shown, &QueueViewModel::summaryChanged, this,
                [&] { allSelected = shown.allQueuedSelected(); });
        queue.setAllSelected(false);
        shown.toggleAllSelected(); // acts on what is, not on what is shown yet
        QVERIFY(queue.isSelected(0));
        queue.setAllSelected(false);
        QVERIFY(changed.isEmpty()); // announced, not yet applied
        QTRY_COMPARE_WITH_TIMEOUT(changed.size(), 1, 60000);
        QVERIFY(!allSelected);
        QVERIFY(!shown.hasSelectedQueuedJobs());
    }

    void aDropIsInTheQueueBeforeWhatFollowsIt()
    {
        QTemporaryDir folder;
        QList<QUrl> urls = {QUrl(u"https://quorvane.example/c.mov"_s)};
        for (int number = 0; number < 300; ++number) {
            urls.append(QUrl::fromLocalFile(folder.filePath(u"%1.mxf"_s.arg(number))));
            QVERIFY(QFile(urls.last().toLocalFile()).open(QIODevice::WriteOnly));
        }
        StagedEngine engine;
        QList<qsizetype> counts; // of jobs, after each event
        engine.viewModel()->handleDrop(urls.mid(0, 300));
        QMetaObject::invokeMethod(
            &engine, [&] { counts << engine.jobs().size(); }, Qt::QueuedConnection);
        engine.viewModel()->handleDrop(urls.mid(300));
        QMetaObject::invokeMethod(
            &engine, [&] { counts << engine.jobs().size(); }, Qt::QueuedConnection);
        QVERIFY(engine.jobs().isEmpty());
        QTRY_COMPARE(counts, (QList<qsizetype>{299, 300}));
    }

    void filesOfThisComputerAreLocal()
    {
        QTemporaryDir folder;
        const QUrl plain = QUrl::fromLocalFile(folder.filePath(u"a.mxf"_s));
        QVERIFY(QFile(plain.toLocalFile()).open(QIODevice::WriteOnly));
        StagedEngine engine;
        for (const QString &host : {u"localhost"_s, QSysInfo::machineHostName()}) {
            QUrl url = plain;
            url.setHost(host);
            QVERIFY(QueueViewModel::acceptsDrop({url}));
            engine.viewModel()->handleDrop({url});
            QTRY_COMPARE(engine.jobCount(), 1);
            QCOMPARE(engine.jobs().first().sourceURL, plain);
            engine.clear();
        }
        QVERIFY(!QueueViewModel::acceptsDrop({QUrl(u"file://elsewhere.example/a.mxf"_s)}));
    }
};

QTEST_GUILESS_MAIN(QueueViewModelTest)
#include "tst_queue_view_model.moc"
