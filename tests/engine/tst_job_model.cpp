#include "engine/completion_notification.h"
#include "engine/model/quality_preset.h"
#include "engine/model/remaining_time_text.h"
#include "engine/output_paths.h"
#include "engine/queue_summary.h"
#include "platform/preference_store.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace marrowcut;

class TestJobModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rememberedPreset();
    void remainingTimeTexts();
    void outputPaths_data();
    void outputPaths();
    void completionBodies();
    void summary();
};

void TestJobModel::rememberedPreset()
{
    MemoryPreferenceStore store;
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
