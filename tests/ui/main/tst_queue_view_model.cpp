#include "support/staged_engine.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace marrowcut;

namespace
{

QString clip(int number)
{
    return QStringLiteral("/clips/%1.mxf").arg(number);
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
        QTRY_COMPARE(shown.jobs()->rowCount(), 1000);
        QSignalSpy changed(&shown, &QueueViewModel::summaryChanged);
        bool allSelected = true;
        connect(&shown, &QueueViewModel::summaryChanged, this,
                [&] { allSelected = shown.allQueuedSelected(); });
        queue.setAllSelected(false);
        shown.toggleAllSelected(); // acts on what is, not on what is shown yet
        QVERIFY(queue.isSelected(0));
        queue.setAllSelected(false);
        QVERIFY(changed.isEmpty()); // announced, not yet applied
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(!allSelected);
        QVERIFY(!shown.hasSelectedQueuedJobs());
    }

    void aDropIsInTheQueueBeforeWhatFollowsIt()
    {
        QTemporaryDir folder;
        QList<QUrl> urls = {QUrl(QStringLiteral("https://quorvane.example/c.mov"))};
        for (const QString &name :
             {QStringLiteral("a.mxf"), QStringLiteral("b.mov"), QStringLiteral("c.mp4")}) {
            urls.append(QUrl::fromLocalFile(folder.filePath(name)));
            QVERIFY(QFile(urls.last().toLocalFile()).open(QIODevice::WriteOnly));
        }
        StagedEngine engine;
        QList<qsizetype> counts; // of jobs, after each event
        engine.viewModel()->handleDrop(urls.mid(0, 2));
        QMetaObject::invokeMethod(
            &engine, [&] { counts << engine.jobs().size(); }, Qt::QueuedConnection);
        engine.viewModel()->handleDrop(urls.mid(2));
        QMetaObject::invokeMethod(
            &engine, [&] { counts << engine.jobs().size(); }, Qt::QueuedConnection);
        QVERIFY(engine.jobs().isEmpty());
        QTRY_COMPARE(counts, (QList<qsizetype>{1, 3}));
    }

    void filesOfThisComputerAreLocal()
    {
        QTemporaryDir folder;
        const QUrl plain = QUrl::fromLocalFile(folder.filePath(QStringLiteral("a.mxf")));
        QVERIFY(QFile(plain.toLocalFile()).open(QIODevice::WriteOnly));
        StagedEngine engine;
        for (const QString &host : {QStringLiteral("localhost"), QSysInfo::machineHostName()}) {
            QUrl url = plain;
            url.setHost(host);
            QVERIFY(QueueViewModel::acceptsDrop({url}));
            engine.viewModel()->handleDrop({url});
            QTRY_COMPARE(engine.jobCount(), 1);
            QCOMPARE(engine.jobs().first().sourceURL, plain);
            engine.clear();
        }
        QVERIFY(!QueueViewModel::acceptsDrop({QUrl(QStringLiteral("file://elsewhere.example/a.mxf"))}));
    }
};

QTEST_GUILESS_MAIN(QueueViewModelTest)
#include "tst_queue_view_model.moc"
