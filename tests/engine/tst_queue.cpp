#include "engine/burn_in_engine.h"
#include "engine/failure_advice.h"
#include "engine/model/output_paths.h"
#include "engine/model/proxy_job.h"
#include "engine/queue_summary.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"

#include <QDir>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace marrowcut;
using namespace Qt::StringLiterals;

class TestQueue : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_engine = std::make_unique<BurnInEngine>(m_preferences, m_notifications);
    }

    void expandsAFolder()
    {
        for (const char *name : {"a.MOV", "b.mp4", "notes.txt", ".hidden.mxf", "c.m4v", "mov", "d.mov.txt"})
            clip(QLatin1String(name));
        QVERIFY(QDir(m_folder->path()).mkpath(u"sub"_s));
        clip(u"sub/e.mov"_s);
        QVERIFY(QDir(m_folder->path()).mkpath(u"archive.mov"_s));

        QVERIFY(m_engine->enqueue({QUrl::fromLocalFile(m_folder->path())}).isEmpty());
        const QStringList found = names();
        QCOMPARE(QSet(found.begin(), found.end()),
                 (QSet<QString>{u"a.MOV"_s, u"b.mp4"_s, u".hidden.mxf"_s, u"archive.mov"_s}));
        const ProxyJob &job = m_engine->jobs().first();
        QVERIFY(job.status.isQueued() && job.isSelected && job.burnInEnabled && !job.etaSeconds &&
                !job.errorDetail);
        QCOMPARE(job.sourceURL, QUrl::fromLocalFile(m_folder->filePath(job.fileName())));
    }

    void addsEachFileOnce()
    {
        const QUrl a = clip(u"a.mov"_s);
        const QUrl b = clip(u"b.mov"_s);
        m_engine->enqueue({a, b, a});
        m_engine->enqueue({b, QUrl::fromLocalFile(m_folder->path())});
        QCOMPARE(names(), (QStringList{u"a.mov"_s, u"b.mov"_s}));
        m_engine->removeFromQueue(m_engine->jobs().first().id);
        m_engine->enqueue({b, a});
        QCOMPARE(names(), (QStringList{u"b.mov"_s, u"a.mov"_s}));
        m_engine->toggleSelected(m_engine->jobs().first().id); // found where it is now
        QVERIFY(!m_engine->jobs().first().isSelected && m_engine->jobs().last().isSelected);
    }

    void announcesEachEditBeforeItIsApplied()
    {
        QList<ProxyJob> before;
        int announcements = 0;
        connect(m_engine.get(), &BurnInEngine::willChange, this, [&] {
            if (++announcements == 1)
                QCOMPARE(m_engine->jobs(), before);
        });
        const auto announced = [&](const auto &edit) {
            before = m_engine->jobs();
            announcements = 0;
            edit();
            return announcements;
        };
        const QUrl a = clip(u"a.mov"_s);
        QCOMPARE(announced([&] { m_engine->enqueue({a}); }), 1);
        const QUuid id = m_engine->jobs().first().id;
        QCOMPARE(announced([&] { m_engine->toggleSelected(id); }), 1);
        QCOMPARE(announced([&] { m_engine->toggleBurnIn(id); }), 1);
        m_engine->start(); // nothing is selected
        QVERIFY(!m_engine->isRunning());
        QCOMPARE(announced([&] { m_engine->retry(id); }), 4);
        // Nothing to edit: it is selected, nothing is completed, the others are not there.
        const QUuid unknown = QUuid::createUuid();
        QCOMPARE(announced([&] { m_engine->setAllSelected(true); }), 0);
        QCOMPARE(announced([&] { m_engine->clearCompleted(); }), 0);
        QCOMPARE(announced([&] { m_engine->removeFromQueue(unknown); }), 0);
        QCOMPARE(announced([&] { m_engine->toggleSelected(unknown); }), 0);
        QCOMPARE(announced([&] { m_engine->toggleBurnIn(unknown); }), 0);
        QCOMPARE(announced([&] { m_engine->retry(unknown); }), 0);
        QCOMPARE(announced([&] { m_engine->removeFromQueue(id); }), 1);
        const QualityPreset preset = m_engine->qualityPreset(); // the same value counts, too
        QCOMPARE(announced([&] { m_engine->setQualityPreset(preset); }), 1);
    }

    void presetIsRememberedOnEveryAssignment()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
        const auto remembered = [] { return SettingsPreferenceStore().value(u"qualityPreset"_s); };
        SettingsPreferenceStore store;
        BurnInEngine engine(store, m_notifications);
        QCOMPARE(engine.qualityPreset(), QualityPreset::standard);
        QVERIFY(!remembered()); // the initial value is not written back
        engine.setQualityPreset(QualityPreset::standard);
        QCOMPARE(remembered(), u"standard"_s);
        engine.setQualityPreset(QualityPreset::tiny);
        QCOMPARE(BurnInEngine(store, m_notifications).qualityPreset(), QualityPreset::tiny);
        store.setValue(u"qualityPreset"_s, u"Tiny"_s); // no name of one
        QCOMPARE(BurnInEngine(store, m_notifications).qualityPreset(), QualityPreset::standard);
    }

    void remainingTimeTexts()
    {
        const QList<std::pair<double, const char *>> cases = {
            {0.0, "0s left"},       {59.99, "59s left"},    {60.0, "1m left"},      {3599.0, "59m left"},
            {3600.0, "1h 0m left"}, {3661.5, "1h 1m left"}, {7200.0, "2h 0m left"}, {4e6, "1111h 6m left"}};
        for (const auto &[seconds, text] : cases)
            QCOMPARE(formatETA(seconds), QLatin1String(text));
        for (const double seconds : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e30, -5.0})
            QCOMPARE(formatETA(seconds), QString());
    }

    void adviceDependsOnTheDetailAlone()
    {
        ProxyJob job = ProxyJob::forSource(QUrl::fromLocalFile(u"/gone/a.mov"_s));
        const auto advice = [&job](const QString &detail) {
            job.status = JobStatus::failed(u"encode error"_s);
            job.errorDetail = detail;
            return failureAdvice(job);
        };
        const QString folder = u"/gone/marrowcut_proxies"_s;
        const QString out = folder + u"/.tmp_a_proxy.mp4: "_s;
        const QString notMade = u"The folder could not be created: "_s + folder;
        const QList<std::pair<QString, QString>> cases = {
            // The same text of the system, about the clip and about its proxy's place.
            {u"/gone/a.mov: Permission denied"_s, u"The clip cannot be read"_s},
            {out + u"Permission denied"_s, folder},
            {u"/gone/a.mov: No such file or directory"_s, u"The clip is not there"_s},
            {u"/gone/a.mov: Is a directory"_s, u"Add the clips in it"_s},
            {out + u"Is a directory"_s, folder + u"/.tmp_a_proxy.mp4"_s},
            // A write-protected card asks for no permissions.
            {out + u"No such file or directory\n"_s + notMade + u": Read-only file system"_s,
             u"another disk"_s},
            {notMade + u": Permission denied"_s, u"permissions of /gone,"_s},
            // Pieces that take the room are named.
            {folder + u"/.chunks_a/part_0001.mp4: No space left on device"_s, folder + u"/.chunks_a"_s},
            {QString(), u"could not be started"_s},
            {u"[out#0/mp4] Error opening output /gone/a.mp4: File name too long"_s, u"shorter name"_s},
        };
        for (const auto &[detail, part] : cases)
            QVERIFY2(advice(detail).contains(part), qPrintable(detail));
        QVERIFY(!advice(u"av_interleaved_write_frame(): No space left on device"_s).contains(folder));
        for (const char *unknown : {"Error opening /other/file: Permission denied", "something new"})
            QCOMPARE(advice(QString::fromLatin1(unknown)), QString());

        job.errorDetail = u"frame=  9 fps=0.0 q=0.0 size= 0kB time=00:00:00.00 bitrate=N/A speed=0x\n"
                          "Codec AVOption gop_timecode (…) has not been used for any stream.\nbad"_s;
        QCOMPARE(errorMessages(job), u"bad"_s);
        job.status = JobStatus::done();
        QCOMPARE(failureAdvice(job), QString());
    }

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

QTEST_GUILESS_MAIN(TestQueue)
#include "tst_queue.moc"
