#include "ui/main/job_list_model.h"
#include "ui/main/job_text.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include <cmath>

using namespace marrowcut;
using namespace Qt::StringLiterals;

namespace
{

/// Of clips with numbers for names.
QList<ProxyJob> manyJobs(int count, int first = 0)
{
    QList<ProxyJob> jobs;
    for (int number = first; number < first + count; ++number)
        jobs.append(ProxyJob::forSource(QUrl::fromLocalFile(u"/clips/%1"_s.arg(number))));
    return jobs;
}

QString shownNames(const JobListModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row).data(JobListModel::NameRole).toString());
    return names.join(QLatin1Char(' '));
}

/// A model and what it says; a reset is a failure.
struct Watched {
    JobListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
    QStringList said; // such as "inserted 2-3"

    Watched()
    {
        const auto note = [this](const char *what, int first, int last) {
            said.append(u"%1 %2-%3"_s.arg(QLatin1String(what)).arg(first).arg(last));
        };
        const auto noteRows = [note](const char *what) {
            return [note, what](const QModelIndex &, int first, int last) { note(what, first, last); };
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, noteRows("inserted"));
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, noteRows("removed"));
        QObject::connect(&model, &QAbstractItemModel::dataChanged,
                         [note](const QModelIndex &first, const QModelIndex &last) {
                             note("changed", first.row(), last.row());
                         });
        QObject::connect(&model, &QAbstractItemModel::modelReset, [] { QFAIL("reset"); });
    }
    /// What mirroring the jobs makes it say.
    QStringList mirror(const QList<ProxyJob> &jobs)
    {
        said.clear();
        model.mirror(jobs);
        return said;
    }
};

} // namespace

class JobListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editsComeAsFewSignals()
    {
        Watched watched;
        QList<ProxyJob> jobs = manyJobs(8);
        QCOMPARE(watched.mirror(jobs), QStringList{u"inserted 0-7"_s});
        jobs.remove(5, 2);
        jobs.remove(3);
        jobs.remove(0, 2);
        jobs[1].status = JobStatus::encoding();
        jobs += manyJobs(2, 8);
        QCOMPARE(watched.mirror(jobs), (QStringList{u"removed 5-6"_s, u"removed 3-3"_s, u"removed 0-1"_s,
                                                    u"changed 1-1"_s, u"inserted 3-4"_s}));
        QCOMPARE(shownNames(watched.model), u"2 4 7 8 9"_s);
        QCOMPARE(watched.model.index(1).data(JobListModel::StatusLabelRole).toString(), u"Encoding…"_s);

        jobs[0].isSelected = false;
        jobs[1].burnInEnabled = false; // adjoins
        jobs[4].progress = 0.5;
        QCOMPARE(watched.mirror(jobs), (QStringList{u"changed 0-1"_s, u"changed 4-4"_s}));
        QCOMPARE(watched.mirror(jobs), QStringList());
    }

    void remainingTimeWhereItIsWorthShowing()
    {
        ProxyJob job = manyJobs(1).first();
        job.status = JobStatus::encoding();
        for (const double eta : {0.5, 1.0, HUGE_VAL, std::nan(""), 1e300}) {
            job.etaSeconds = eta;
            QCOMPARE(JobText::remainingTime(job), QString());
        }
        job.etaSeconds = 90;
        QCOMPARE(JobText::remainingTime(job), u"· 1m left"_s);
        QCOMPARE(JobText::accessibleDescription(job), u"1m left"_s);
    }

    void textsOfAFailure()
    {
        ProxyJob job = ProxyJob::forSource(QUrl::fromLocalFile(u"/clips/a.mxf"_s));
        job.errorDetail = u"frame=   10 fps=0.0 q=0.0 size=1kB time=00:00:00.40 bitrate=1kbits/s\n"
                          "av_interleaved_write_frame(): No space left on device\n\n"_s;
        QCOMPARE(JobText::accessibleDescription(job), QString()); // it has not failed yet
        job.status = JobStatus::failed(u"encode error"_s);
        const QString advice = JobText::accessibleDescription(job);
        QVERIFY(advice.startsWith(u"The disk is full."_s));
        QCOMPARE(JobText::failureText(job),
                 advice + u"\n\nav_interleaved_write_frame(): No space left on device"_s);
        job.errorDetail = u"First\nOdd thing\n"_s;
        QCOMPARE(JobText::accessibleDescription(job), u"Odd thing"_s);
        QCOMPARE(JobText::failureReport(job), u"a.mxf\nFailed: encode error\n\nFirst\nOdd thing"_s);
    }

    void namesStayOnOneLine()
    {
        ProxyJob job = ProxyJob::forSource(QUrl::fromLocalFile(u"/clips/a\nb\x7f\u2028\u202ec\u05d0.mxf"_s));
        JobListModel model;
        model.mirror({job});
        QCOMPARE(model.index(0).data(JobListModel::NameRole).toString(),
                 u"a\u21b5b\ufffd\ufffd\ufffdc\u05d0.mxf"_s);
        QVERIFY(JobText::accessibleName(job).startsWith(u"a\u21b5b"_s));
    }
};

QTEST_GUILESS_MAIN(JobListModelTest)
#include "tst_job_list_model.moc"
