#include "engine/burn_in_engine.h"
#include "platform/file_viewer.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"
#include "ui/main/engine_queue_source.h"
#include "ui/main/queue_view_model.h"
#include "ui/main/scripted/scripted_queue.h"

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
        ScriptedQueue queue;
        QueueViewModel &shown = *queue.viewModel();
        for (int number = 0; number < 1000; ++number)
            queue.add(clip(number));
        QTRY_COMPARE(shown.jobs()->rowCount(), 1000);
        QSignalSpy changed(&shown, &QueueViewModel::summaryChanged);
        bool allSelected = true;
        connect(&shown, &QueueViewModel::summaryChanged, this,
                [&] { allSelected = shown.allQueuedSelected(); });
        queue.setAllSelected(false);
        QVERIFY(changed.isEmpty()); // announced, not yet applied
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(!allSelected);
        QVERIFY(!shown.hasSelectedQueuedJobs());
    }

    void derivedValues()
    {
        ScriptedQueue queue;
        QueueViewModel &shown = *queue.viewModel();
        QVERIFY(shown.isEmpty());
        QCOMPARE(shown.outputDir(), QUrl());
        QCOMPARE(shown.overallProgress(), 0.0);
        queue.add(QStringLiteral("/one day/a.mxf"), QStringLiteral("done"));
        queue.add(QStringLiteral("/other/b.mxf"), QStringLiteral("failed:encode error"), 0.3);
        QTRY_COMPARE(shown.doneText(), QStringLiteral("1 of 2 done"));
        QCOMPARE(shown.overallProgress(), 1.0);
        QVERIFY(shown.hasCompletedJobs());
        QVERIFY(!shown.hasQueuedJobs() && !shown.allQueuedSelected());
        QCOMPARE(shown.outputDirPath(), QStringLiteral("/one day/marrowcut_proxies"));
        shown.revealOutput();
        QCOMPARE(queue.revealed(), QList{shown.outputDir()});
        shown.clearCompleted();
        QTRY_VERIFY(shown.isEmpty());
        QCOMPARE(shown.outputDirPath(), QString());
        shown.revealOutput();
        QCOMPARE(queue.revealed().size(), 1);
    }

    void selectionButtonActsOnTheStateOfTheMoment()
    {
        ScriptedQueue queue;
        queue.add(clip(1));
        queue.add(clip(2));
        queue.setSelected(1, false);
        queue.viewModel()->toggleAllSelected(); // nothing has been refreshed yet
        QVERIFY(queue.isSelected(0) && queue.isSelected(1));
        queue.viewModel()->toggleAllSelected();
        QVERIFY(!queue.isSelected(0) && !queue.isSelected(1));
    }

    void aDropIsPostedItemByItem()
    {
        ScriptedQueue queue;
        const QList<QUrl> files = {QUrl(QStringLiteral("file:///a%20%23b.mov")),
                                   QUrl(QStringLiteral("file:///d"))};
        QVERIFY(!QueueViewModel::acceptsDrop({QUrl(QStringLiteral("https://quorvane.example/a.mov"))}));
        QVERIFY(QueueViewModel::acceptsDrop(files));
        queue.viewModel()->handleDrop(
            {files[0], QUrl(QStringLiteral("https://quorvane.example/c.mov")), files[1]});
        QVERIFY(queue.enqueued().isEmpty());
        QTRY_COMPARE(queue.enqueued(), files);
    }

    void presetsFollowAndAreRemembered()
    {
        MemoryPreferenceStore preferences;
        MemoryNotificationCenter notifications(false);
        BurnInEngine engine(preferences, notifications);
        EngineQueueSource source(engine);
        MemoryFileViewer viewer;
        QueueViewModel shown(source, viewer);
        QCOMPARE(shown.presetNames(), (QStringList{QStringLiteral("standard"), QStringLiteral("smaller"),
                                                   QStringLiteral("tiny")}));
        QCOMPARE(shown.presetIndex(), 0);
        shown.choosePreset(2);
        QTRY_COMPARE(shown.presetIndex(), 2);
        QVERIFY(shown.presetDescription().contains(QStringLiteral("6 megabytes")));
        QCOMPARE(preferences.value(QStringLiteral("qualityPreset")), QStringLiteral("tiny"));
    }

    void anEngineIsEditedThroughIt()
    {
        QTemporaryDir folder;
        for (const QString &name : {QStringLiteral("a.mxf"), QStringLiteral("b.mov")})
            QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        MemoryPreferenceStore preferences;
        MemoryNotificationCenter notifications(false);
        BurnInEngine engine(preferences, notifications);
        EngineQueueSource source(engine);
        MemoryFileViewer viewer;
        QueueViewModel shown(source, viewer);
        shown.handleDrop({QUrl::fromLocalFile(folder.path())});
        QTRY_COMPARE(shown.jobs()->rowCount(), 2);
        const QString id = shown.jobs()->index(0).data(JobListModel::JobIdRole).toString();
        shown.toggleSelected(id);
        shown.toggleBurnIn(id);
        QTRY_VERIFY(!shown.jobs()->index(0).data(JobListModel::IsSelectedRole).toBool());
        QVERIFY(!shown.jobs()->index(0).data(JobListModel::BurnInEnabledRole).toBool());
        shown.removeFromQueue(id);
        QTRY_COMPARE(shown.jobs()->rowCount(), 1);
    }
};

QTEST_GUILESS_MAIN(QueueViewModelTest)
#include "tst_queue_view_model.moc"
