#include "engine/burn_in_engine.h"
#include "platform/file_viewer.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"
#include "ui/main/engine_queue_source.h"
#include "ui/main/queue_view_model.h"
#include "ui/main/scripted/scripted_queue.h"

#include <QDir>
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

struct EngineQueue {
    MemoryPreferenceStore preferences;
    MemoryNotificationCenter notifications{false};
    BurnInEngine engine{preferences, notifications};
    EngineQueueSource source{engine};
    MemoryFileViewer viewer;
    QueueViewModel shown{source, viewer};
};

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
        shown.toggleAllSelected(); // acts on what is, not on what is shown yet
        QVERIFY(queue.isSelected(0));
        queue.setAllSelected(false);
        QVERIFY(changed.isEmpty()); // announced, not yet applied
        QTRY_COMPARE(changed.size(), 1);
        QVERIFY(!allSelected);
        QVERIFY(!shown.hasSelectedQueuedJobs());
    }

    void aLargeFolderIsQueuedInPartsThatLookLikeOneDrop()
    {
        QTemporaryDir folder;
        QVERIFY(
            QDir(folder.path()).mkpath(QStringLiteral("a card.mov/inner.mov"))); // a name is all that counts
        QVERIFY(QFile::link(QStringLiteral("/nowhere"), folder.filePath(QStringLiteral("dangling.mp4"))));
        for (int number = 0; number < 1200; ++number)
            QVERIFY(QFile(folder.filePath(QStringLiteral("%1.mxf").arg(number))).open(QIODevice::WriteOnly));
        const QList<QUrl> drop = {QUrl::fromLocalFile(folder.path())};
        EngineQueue inParts;
        EngineQueue atOnce;
        atOnce.engine.enqueue(drop);
        inParts.source.enqueue(drop);
        QTRY_VERIFY(!inParts.engine.jobs().isEmpty());
        QVERIFY(inParts.engine.jobs().size() < 1202);
        inParts.source.enqueue(drop); // comes behind what waits, and adds nothing
        inParts.source.setAllSelected(false);
        QCOMPARE(inParts.engine.jobs().size(), 1202);
        for (qsizetype row = 0; row < 1202; ++row)
            QCOMPARE(inParts.engine.jobs()[row].sourceURL, atOnce.engine.jobs()[row].sourceURL);
        QVERIFY(!inParts.engine.hasSelectedQueuedJobs());
    }

    void anEngineIsEditedThroughIt()
    {
        QTemporaryDir folder;
        for (const QString &name : {QStringLiteral("a.mxf"), QStringLiteral("b.mov")})
            QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
        EngineQueue queue;
        QueueViewModel &shown = queue.shown;
        shown.handleDrop({QUrl::fromLocalFile(folder.path())});
        QTRY_COMPARE(shown.jobs()->rowCount(), 2);
        const QString id = shown.jobs()->index(0).data(JobListModel::JobIdRole).toString();
        shown.toggleSelected(id);
        shown.toggleBurnIn(id);
        QTRY_VERIFY(!shown.jobs()->index(0).data(JobListModel::IsSelectedRole).toBool());
        QVERIFY(!shown.jobs()->index(0).data(JobListModel::BurnInEnabledRole).toBool());
        shown.removeFromQueue(id);
        shown.choosePreset(2);
        QTRY_COMPARE(shown.jobs()->rowCount(), 1);
        QCOMPARE(shown.presetIndex(), 2);
        QCOMPARE(queue.preferences.value(QStringLiteral("qualityPreset")), QStringLiteral("tiny"));
    }
};

QTEST_GUILESS_MAIN(QueueViewModelTest)
#include "tst_queue_view_model.moc"
