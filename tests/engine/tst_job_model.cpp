#include "engine/completion_notification.h"
#include "engine/manifest.h"
#include "engine/model/quality_preset.h"
#include "engine/model/remaining_time_text.h"
#include "engine/output_paths.h"
#include "engine/queue_summary.h"
#include "platform/preference_store.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>

using namespace marrowcut;

class TestJobModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void statusLabelsAndEquality();
    void presetDescriptions();
    void rememberedPreset();
    void remainingTimeTexts();
    void outputPaths_data();
    void outputPaths();
    void manifestLines();
    void manifestFile();
    void completionBodies();
    void summary();
};

void TestJobModel::statusLabelsAndEquality()
{
    QCOMPARE(JobStatus::probing().label(), QStringLiteral("Reading metadata\u2026"));
    QCOMPARE(JobStatus::encoding().label(), QStringLiteral("Encoding\u2026"));
    QCOMPARE(JobStatus::skipped().label(), QStringLiteral("Already done"));
    QCOMPARE(JobStatus::failed(QStringLiteral("encode error")).label(),
             QStringLiteral("Failed: encode error"));
    QCOMPARE(JobStatus::failed(QString()).label(), QStringLiteral("Failed: "));
    QVERIFY(JobStatus::failed(QStringLiteral("a")) != JobStatus::failed(QStringLiteral("b")));

    ProxyJob job = ProxyJob::forSource(QUrl::fromLocalFile(QStringLiteral("/a#b?.mov")));
    ProxyJob same = job;
    QCOMPARE(job, same);
    same.etaSeconds = 0;
    QVERIFY(job != same);
    QCOMPARE(job.fileName(), QStringLiteral("a#b?.mov"));
}

void TestJobModel::presetDescriptions()
{
    QCOMPARE(QualityPreset(QualityPreset::standard).descriptionText(),
             QStringLiteral("Exports files that are about 16 megabytes per minute."));
    QCOMPARE(QualityPreset(QualityPreset::smaller).descriptionText(),
             QStringLiteral("Exports files that are about 9 megabytes per minute."));
    QCOMPARE(QualityPreset(QualityPreset::tiny).descriptionText(),
             QStringLiteral(
                 "Exports files that are about 6 megabytes per minute. Text is harder to read at this size; "
                 "use this only if file size matters more than a crisp burn-in."));
}

void TestJobModel::rememberedPreset()
{
    MemoryPreferenceStore store;
    QCOMPARE(QualityPreset::saved(store), QualityPreset::standard);
    for (const QualityPreset preset : QualityPreset::allCases) {
        QualityPreset::setSaved(store, preset);
        QCOMPARE(QualityPreset::saved(store), preset);
    }
    for (const QString &text : {QStringLiteral("Tiny"), QStringLiteral("tiny "), QString()}) {
        store.setValue(QStringLiteral("qualityPreset"), text);
        QCOMPARE(QualityPreset::saved(store), QualityPreset::standard);
    }
}

void TestJobModel::remainingTimeTexts()
{
    const QList<std::pair<double, const char *>> cases = {
        {0.0, "0s left"},       {59.99, "59s left"},    {60.0, "1m left"},      {3599.0, "59m left"},
        {3600.0, "1h 0m left"}, {3661.5, "1h 1m left"}, {7200.0, "2h 0m left"}, {4e6, "1111h 6m left"}};
    for (const auto &[seconds, text] : cases)
        QCOMPARE(formatETA(seconds), QLatin1String(text));
    for (const double seconds : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e30, -5.0})
        QCOMPARE(formatETA(seconds), QString());
}

void TestJobModel::outputPaths_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("final");
    QTest::addColumn<QString>("temporary");
    const auto row = [](const char *source, const char *final, const char *temporary) {
        QTest::newRow(source) << QString::fromUtf8(source) << QString::fromUtf8(final)
                              << QString::fromUtf8(temporary);
    };
    row("/f/A001C003.MXF", "/f/marrowcut_proxies/A001C003_proxy.mp4",
        "/f/marrowcut_proxies/.tmp_A001C003_proxy.mp4");
    row("/f/take.2.mov", "/f/marrowcut_proxies/take.2_proxy.mp4",
        "/f/marrowcut_proxies/.tmp_take.2_proxy.mp4");
    row("/a%20b#/ä?.mp4", "/a%20b#/marrowcut_proxies/ä?_proxy.mp4",
        "/a%20b#/marrowcut_proxies/.tmp_ä?_proxy.mp4");
    row("/x.mov", "/marrowcut_proxies/x_proxy.mp4", "/marrowcut_proxies/.tmp_x_proxy.mp4");
}

void TestJobModel::outputPaths()
{
    QFETCH(QString, source);
    const OutputPaths paths = OutputPaths::forSource(QUrl::fromLocalFile(source));
    QTEST(paths.finalOutput, "final");
    QTEST(paths.tmpOutput, "temporary");
    QCOMPARE(outputFolder(QUrl::fromLocalFile(source)).toLocalFile(), paths.outDir);
}

void TestJobModel::manifestLines()
{
    const OutputPaths paths = OutputPaths::forSource(QUrl::fromLocalFile(QStringLiteral("/f/a,b.mov")));
    const ProbedMetadata meta = {QStringLiteral("01:00:00;00"), QStringLiteral("30000/1001"), 2, 93.44,
                                 QStringLiteral("unavailable")};
    const QString time = QStringLiteral("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\dZ\n");
    const auto matches = [&](const QString &line, const QString &start) {
        return QRegularExpression(
                   QRegularExpression::anchoredPattern(QRegularExpression::escape(start) + time))
            .match(line)
            .hasMatch();
    };
    QVERIFY(
        matches(Manifest::line(paths, meta, QStringLiteral("done")),
                QStringLiteral("a,b.mov,a,b_proxy.mp4,01:00:00;00,30000/1001,93.44,2,unavailable,done,")));
    QVERIFY(matches(Manifest::line(paths, {}, QStringLiteral("failed: metadata")),
                    QStringLiteral("a,b.mov,a,b_proxy.mp4,,,,,,failed: metadata,")));
}

void TestJobModel::manifestFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("manifest.csv"));
    Manifest::append(path, QStringLiteral("é\n"));
    Manifest::append(path, QStringLiteral("two\n"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             "source_filename,proxy_filename,source_timecode,frame_rate,duration_seconds,audio_channels,"
             "file_date,status,processed_at\n\xC3\xA9\ntwo\n");
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("manifest.csv")});
    // Where there is no folder there is no manifest, and no complaint.
    Manifest::append(folder.filePath(QStringLiteral("none/manifest.csv")), QStringLiteral("x\n"));
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("none"))));
}

void TestJobModel::completionBodies()
{
    QCOMPARE(completionBody(1, 0), QStringLiteral("1 file done."));
    QCOMPARE(completionBody(0, 0), QStringLiteral("0 files done."));
    QCOMPARE(completionBody(12000, 0), QStringLiteral("12000 files done."));
    QCOMPARE(completionBody(0, 1), QStringLiteral("0 done, 1 failed."));
}

void TestJobModel::summary()
{
    QCOMPARE(QueueSummary::of({}), QueueSummary());
    QList<ProxyJob> jobs(4);
    jobs[0].status = JobStatus::skipped();
    jobs[1].status = JobStatus::failed(QStringLiteral("x"));
    jobs[1].progress = 0.3;
    jobs[2].status = JobStatus::encoding();
    jobs[2].progress = 0.5;
    jobs[3].isSelected = false;
    const QueueSummary summary = QueueSummary::of(jobs);
    QCOMPARE(summary.doneCount, 1);
    QCOMPARE(summary.overallProgress, 2.5 / 4);
    QVERIFY(summary.hasCompletedJobs() && summary.hasQueuedJobs());
    QVERIFY(!summary.hasSelectedQueuedJobs() && !summary.allQueuedSelected());
    QVERIFY(!QueueSummary::of(jobs.first(3)).allQueuedSelected()); // nothing is queued
}

QTEST_GUILESS_MAIN(TestJobModel)
#include "tst_job_model.moc"
