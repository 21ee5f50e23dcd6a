#include "engine/burn_in_engine.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"

#include <QDir>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace marrowcut;

class TestQueue : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void expandsAFolder();
    void namesThatAreNoText();
    void tellsWhatGaveNoClip();
    void addsEachFileOnce();
    void announcesEachEditBeforeItIsApplied();
    void presetIsRememberedOnEveryAssignment();
    void selection();
    void removalAndClearing();
    void unknownIdsChangeNothing();

private:
    QUrl clip(const QString &name)
    {
        const QString path = m_folder->filePath(name);
        if (!QFile(path).open(QIODevice::WriteOnly))
            qFatal("cannot make %s", qPrintable(path));
        return QUrl::fromLocalFile(path);
    }

    QStringList names() const
    {
        QStringList list;
        for (const ProxyJob &job : m_engine->jobs())
            list.append(job.fileName());
        return list;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    MemoryPreferenceStore m_preferences;
    MemoryNotificationCenter m_notifications{false};
    std::unique_ptr<BurnInEngine> m_engine;
};

void TestQueue::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_preferences = {};
    m_engine = std::make_unique<BurnInEngine>(m_preferences, m_notifications);
}

void TestQueue::expandsAFolder()
{
    for (const char *name : {"a.MOV", "b.mp4", "notes.txt", ".hidden.mxf", "c.m4v", "mov", "d.mov.txt"})
        clip(QLatin1String(name));
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("sub")));
    clip(QStringLiteral("sub/e.mov"));
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("archive.mov")));

    QVERIFY(m_engine->enqueue({QUrl::fromLocalFile(m_folder->path())}).isEmpty());
    const QStringList found = names();
    QCOMPARE(QSet(found.begin(), found.end()),
             (QSet<QString>{QStringLiteral("a.MOV"), QStringLiteral("b.mp4"), QStringLiteral(".hidden.mxf"),
                            QStringLiteral("archive.mov")}));
    const ProxyJob &job = m_engine->jobs().first();
    QVERIFY(job.status.isQueued() && job.isSelected && job.burnInEnabled && !job.etaSeconds &&
            !job.errorDetail);
    QCOMPARE(job.sourceURL, QUrl::fromLocalFile(m_folder->filePath(job.fileName())));
}

void TestQueue::namesThatAreNoText()
{
    QVERIFY(QFile(m_folder->filePath(QStringLiteral("fine\uFFFD.mov"))).open(QIODevice::WriteOnly));
    const QByteArray bytes = QFile::encodeName(m_folder->path()) + "/bad\xFF.mov";
    fclose(fopen(bytes.constData(), "w"));
    const QList<RefusedItem> refused = m_engine->enqueue({QUrl::fromLocalFile(m_folder->path())});
    remove(bytes.constData()); // QTemporaryDir cannot
    QCOMPARE(names(), QStringList{QStringLiteral("fine\uFFFD.mov")});
    QCOMPARE(refused.size(), 1);
    QCOMPARE(refused.first().reason, RefusedItem::Reason::nameIsNotText);
    QCOMPARE(refused.first().path, m_folder->filePath(QStringLiteral("bad\\xFF.mov")));
}

void TestQueue::tellsWhatGaveNoClip()
{
    using Reason = RefusedItem::Reason;
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("empty")));
    const QList<QUrl> items = {
        clip(QStringLiteral("a.txt")), QUrl::fromLocalFile(m_folder->filePath(QStringLiteral("gone.mov"))),
        QUrl::fromLocalFile(m_folder->filePath(QStringLiteral("empty"))),
        QUrl(QStringLiteral("https://example.org/a.mov")), clip(QStringLiteral("a.mov"))};
    QList<Reason> reasons;
    for (const RefusedItem &item : m_engine->enqueue(items))
        reasons.append(item.reason);
    QCOMPARE(reasons, (QList<Reason>{Reason::notAVideoFile, Reason::noSuchPath,
                                     Reason::folderWithoutVideoFiles, Reason::noSuchPath}));
    QCOMPARE(names(), QStringList{QStringLiteral("a.mov")});
}

void TestQueue::addsEachFileOnce()
{
    const QUrl a = clip(QStringLiteral("a.mov"));
    const QUrl b = clip(QStringLiteral("b.mov"));
    m_engine->enqueue({a, b, a});
    m_engine->enqueue({b, QUrl::fromLocalFile(m_folder->path())});
    QCOMPARE(names(), (QStringList{QStringLiteral("a.mov"), QStringLiteral("b.mov")}));
    m_engine->removeFromQueue(m_engine->jobs().first().id);
    m_engine->enqueue({a});
    QCOMPARE(names(), (QStringList{QStringLiteral("b.mov"), QStringLiteral("a.mov")}));
}

void TestQueue::announcesEachEditBeforeItIsApplied()
{
    QList<ProxyJob> seen;
    int announcements = 0;
    connect(m_engine.get(), &BurnInEngine::willChange, this, [&] {
        ++announcements;
        seen = m_engine->jobs();
    });
    const auto expectOne = [&](const QList<ProxyJob> &before, int count) {
        QCOMPARE(announcements, count);
        QCOMPARE(seen, before);
        announcements = 0;
    };
    m_engine->enqueue({clip(QStringLiteral("a.mov"))});
    expectOne({}, 1);

    QList<ProxyJob> before = m_engine->jobs();
    m_engine->toggleSelected(before.first().id);
    expectOne(before, 1);
    before = m_engine->jobs();
    m_engine->toggleBurnIn(before.first().id);
    expectOne(before, 1);
    m_engine->retry(before.first().id);
    QCOMPARE(announcements, 4);
    announcements = 0;
    m_engine->setAllSelected(true); // selected by the retry: nothing to edit
    m_engine->clearCompleted();
    QCOMPARE(announcements, 0);
    before = m_engine->jobs();
    m_engine->removeFromQueue(before.first().id);
    expectOne(before, 1);
    m_engine->setQualityPreset(QualityPreset::standard); // the same value counts, too
    QCOMPARE(announcements, 1);
}

void TestQueue::presetIsRememberedOnEveryAssignment()
{
    const QString key = QStringLiteral("qualityPreset");
    QCOMPARE(m_engine->qualityPreset(), QualityPreset::standard);
    QVERIFY(!m_preferences.value(key)); // the initial value is not written back
    m_engine->setQualityPreset(QualityPreset::standard);
    QCOMPARE(m_preferences.value(key), QStringLiteral("standard"));
    m_engine->setQualityPreset(QualityPreset::tiny);
    QCOMPARE(BurnInEngine(m_preferences, m_notifications).qualityPreset(), QualityPreset::tiny);
}

void TestQueue::selection()
{
    QVERIFY(!m_engine->hasQueuedJobs());
    m_engine->enqueue({clip(QStringLiteral("a.mov")), clip(QStringLiteral("b.mov"))});
    const QUuid first = m_engine->jobs().first().id;
    m_engine->toggleSelected(first);
    QVERIFY(!m_engine->jobs().first().isSelected && m_engine->jobs().last().isSelected);
    QVERIFY(m_engine->hasSelectedQueuedJobs());
    m_engine->setAllSelected(false);
    QVERIFY(m_engine->hasQueuedJobs() && !m_engine->hasSelectedQueuedJobs());
    m_engine->start(); // nothing is selected
    QVERIFY(!m_engine->isRunning());
}

void TestQueue::removalAndClearing()
{
    m_engine->enqueue(
        {clip(QStringLiteral("a.mov")), clip(QStringLiteral("b.mov")), clip(QStringLiteral("c.mov"))});
    const QUuid last = m_engine->jobs().last().id;
    m_engine->removeFromQueue(m_engine->jobs().at(1).id);
    m_engine->toggleSelected(last); // still found after the positions moved
    QCOMPARE(names(), (QStringList{QStringLiteral("a.mov"), QStringLiteral("c.mov")}));
    QVERIFY(!m_engine->jobs().last().isSelected);
    m_engine->clearCompleted();
    QCOMPARE(m_engine->jobs().size(), 2);
}

void TestQueue::unknownIdsChangeNothing()
{
    m_engine->enqueue({clip(QStringLiteral("a.mov"))});
    const QSignalSpy announced(m_engine.get(), &BurnInEngine::willChange);
    const QUuid unknown = QUuid::createUuid();
    m_engine->removeFromQueue(unknown);
    m_engine->toggleSelected(unknown);
    m_engine->toggleBurnIn(unknown);
    m_engine->retry(unknown);
    QCOMPARE(announced.size(), 0);
}

QTEST_GUILESS_MAIN(TestQueue)
#include "tst_queue.moc"
