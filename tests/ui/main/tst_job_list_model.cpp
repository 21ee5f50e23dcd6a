#include "ui/main/job_list_model.h"
#include "ui/main/job_row.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace marrowcut;

namespace
{

QList<ProxyJob> jobsNamed(const QStringList &names)
{
    QList<ProxyJob> jobs;
    for (const QString &name : names)
        jobs.append(ProxyJob::forSource(QUrl::fromLocalFile(QStringLiteral("/clips/") + name)));
    return jobs;
}

QList<ProxyJob> manyJobs(int count)
{
    QStringList names;
    for (int number = 0; number < count; ++number)
        names.append(QStringLiteral("%1.mxf").arg(number));
    return jobsNamed(names);
}

QString shownNames(const JobListModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row).data(JobListModel::NameRole).toString());
    return names.join(QLatin1Char(' '));
}

/// What a model said since it was made; a reset is a failure.
struct Watched {
    JobListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};
    QSignalSpy reset{&model, &QAbstractItemModel::modelReset};

    void forget()
    {
        inserted.clear();
        removed.clear();
        changed.clear();
    }
    /// "2-3" for rows 2 to 3.
    static QString rows(const QList<QVariant> &signal, int first)
    {
        return QStringLiteral("%1-%2").arg(signal[first].toInt()).arg(signal[first + 1].toInt());
    }
    QString changedRows(int signal) const
    {
        const auto row = [&](int argument) { return changed[signal][argument].value<QModelIndex>().row(); };
        return QStringLiteral("%1-%2").arg(row(0)).arg(row(1));
    }
};

} // namespace

class JobListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newJobsComeAsOneInsertAtTheEnd()
    {
        Watched watched;
        QList<ProxyJob> jobs = jobsNamed({QStringLiteral("a.mxf"), QStringLiteral("b.mxf")});
        watched.model.mirror(jobs);
        jobs += jobsNamed({QStringLiteral("c.mxf"), QStringLiteral("d.mxf")});
        watched.model.mirror(jobs);
        QCOMPARE(watched.inserted.size(), 2);
        QCOMPARE(Watched::rows(watched.inserted[1], 1), QStringLiteral("2-3"));
        QCOMPARE(shownNames(watched.model), QStringLiteral("a.mxf b.mxf c.mxf d.mxf"));
        QVERIFY(watched.removed.isEmpty() && watched.changed.isEmpty() && watched.reset.isEmpty());
    }

    void removedRunsGoBackToFront()
    {
        Watched watched;
        QList<ProxyJob> jobs = manyJobs(8);
        watched.model.mirror(jobs);
        jobs.remove(5, 2);
        jobs.remove(3);
        jobs.remove(0, 2);
        watched.model.mirror(jobs);
        QStringList runs;
        for (const QList<QVariant> &signal : std::as_const(watched.removed))
            runs.append(Watched::rows(signal, 1));
        QCOMPARE(runs.join(QLatin1Char(' ')), QStringLiteral("5-6 3-3 0-1"));
        QCOMPARE(shownNames(watched.model), QStringLiteral("2.mxf 4.mxf 7.mxf"));
        watched.model.mirror({});
        QCOMPARE(watched.model.rowCount(), 0);
        QVERIFY(watched.changed.isEmpty() && watched.reset.isEmpty());
    }

    void removalInManyPlacesGoesOnWhileTheQueueChanges()
    {
        Watched watched;
        QList<ProxyJob> jobs = manyJobs(700);
        watched.model.mirror(jobs);
        for (qsizetype row = 698; row >= 0; row -= 2)
            jobs.removeAt(row);
        watched.model.mirror(jobs);
        QVERIFY(watched.removed.size() < 350); // the rest is left for later
        jobs.first().status = JobStatus::done();
        jobs += jobsNamed({QStringLiteral("new.mov")});
        watched.model.mirror(jobs);
        QTRY_COMPARE(watched.model.rowCount(), 351);
        for (int row = 0; row < 351; ++row)
            QCOMPARE(watched.model.index(row).data(JobListModel::JobIdRole).toString(),
                     jobs[row].id.toString());
        QCOMPARE(watched.model.index(0).data(JobListModel::StatusTextRole).toString(),
                 QStringLiteral("Done"));
        QVERIFY(watched.reset.isEmpty());
    }

    void removalChangeAndInsertInOneStep()
    {
        Watched watched;
        QList<ProxyJob> jobs = manyJobs(4);
        watched.model.mirror(jobs);
        watched.forget();
        jobs.removeFirst();
        jobs[1].status = JobStatus::encoding();
        jobs += jobsNamed({QStringLiteral("new.mov")});
        watched.model.mirror(jobs);
        QCOMPARE(watched.removed.size(), 1);
        QCOMPARE(watched.inserted.size(), 1);
        QCOMPARE(watched.changed.size(), 1);
        QCOMPARE(watched.changedRows(0), QStringLiteral("1-1"));
        QCOMPARE(shownNames(watched.model), QStringLiteral("1.mxf 2.mxf 3.mxf new.mov"));
        QCOMPARE(watched.model.index(1).data(JobListModel::StatusTextRole).toString(),
                 QStringLiteral("Encoding…"));
    }

    void changesNameTheirRoles()
    {
        Watched watched;
        QList<ProxyJob> jobs = manyJobs(5);
        watched.model.mirror(jobs);
        jobs[0].isSelected = false;
        jobs[1].isSelected = false;
        jobs[3].burnInEnabled = false;
        jobs[4].progress = 0.5;
        watched.model.mirror(jobs);
        QCOMPARE(watched.changed.size(), 3);
        QCOMPARE(watched.changedRows(0), QStringLiteral("0-1"));
        QCOMPARE(watched.changed[0][2].value<QList<int>>(), QList<int>{JobListModel::IsSelectedRole});
        QCOMPARE(watched.changedRows(1), QStringLiteral("3-3"));
        QCOMPARE(watched.changed[1][2].value<QList<int>>(), QList<int>{JobListModel::BurnInEnabledRole});
        QVERIFY(watched.changed[2][2].value<QList<int>>().contains(JobListModel::AccessibleTextRole));
        watched.forget();
        watched.model.mirror(jobs);
        QVERIFY(watched.changed.isEmpty());
    }

    void aMassChangeIsOneSignal()
    {
        QList<ProxyJob> jobs = manyJobs(10000);
        JobListModel model; // the tester walks all rows at each signal: too much of a good thing here
        model.mirror(jobs);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        for (ProxyJob &job : jobs)
            job.isSelected = false;
        model.mirror(jobs);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][1].value<QModelIndex>().row(), 9999);
        QVERIFY(!model.index(9999).data(JobListModel::IsSelectedRole).toBool());
    }

    void estimatesOfTheRemainingTime()
    {
        ProxyJob job = jobsNamed({QStringLiteral("a.mxf")}).first();
        job.etaSeconds = 90;
        job.status = JobStatus::probing();
        QCOMPARE(JobRow::etaText(job), QString()); // of an earlier encode
        job.status = JobStatus::encoding();
        QCOMPARE(JobRow::etaText(job), QStringLiteral("· 1m left"));
        for (const double eta : {0.5, 1.0, HUGE_VAL, std::nan(""), 1e300}) {
            job.etaSeconds = eta;
            QCOMPARE(JobRow::etaText(job), QString());
        }
    }

    void whatIsSaidOfAFailure_data()
    {
        QTest::addColumn<bool>("clipIsThere");
        QTest::addColumn<QString>("complaint");
        QTest::addColumn<QString>("summary");
        const auto missing = QStringLiteral("out.mp4: No such file or directory");
        QTest::newRow("disk full") << true
                                   << QStringLiteral("av_interleaved_write_frame(): No space left on device")
                                   << QStringLiteral("The disk is full. Make room on it, then retry.");
        QTest::newRow("clip gone")
            << false << missing
            << QStringLiteral("The clip is not there any more. Connect its disk again, then retry.");
        QTest::newRow("folder cannot be made")
            << true << missing
            << QStringLiteral(
                   "Nothing can be written beside the clip. Change the permissions of %1, then retry.");
        QTest::newRow("unknown") << true << QStringLiteral("Odd thing") << QStringLiteral("Odd thing");
    }

    void whatIsSaidOfAFailure()
    {
        QFETCH(bool, clipIsThere);
        QFETCH(QString, complaint);
        QFETCH(QString, summary);
        const QTemporaryDir folder;
        ProxyJob job = ProxyJob::forSource(QUrl::fromLocalFile(folder.filePath(QStringLiteral("a.mxf"))));
        if (clipIsThere)
            QVERIFY(QFile(folder.filePath(QStringLiteral("a.mxf"))).open(QIODevice::WriteOnly));
        job.errorDetail = QStringLiteral("frame= 10\n%1\n\n").arg(complaint);
        QCOMPARE(JobRow::errorSummary(job), complaint); // no advice before it has failed
        job.status = JobStatus::failed(QStringLiteral("encode error"));
        if (summary.contains(QStringLiteral("%1")))
            summary = summary.arg(folder.path());
        QCOMPARE(JobRow::errorSummary(job), summary);
        QVERIFY(JobRow::errorText(job).endsWith(QStringLiteral("frame= 10\n") + complaint));
        job.errorDetail.reset();
        QCOMPARE(JobRow::errorReport(job), QStringLiteral("a.mxf\nFailed: encode error"));
    }
};

QTEST_GUILESS_MAIN(JobListModelTest)
#include "tst_job_list_model.moc"
