#include "ui/sheets/diagnostics_report.h"
#include "ui/sheets/diagnostics_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

ProxyJob job(const QString &name, const JobStatus &status, std::optional<QString> detail = {})
{
    ProxyJob made = ProxyJob::forSource(QUrl::fromLocalFile(u"/clips/"_s + name));
    made.status = status;
    made.errorDetail = detail;
    return made;
}

ProxyJob failedJob(const QString &name, std::optional<QString> detail = {})
{
    return job(name, JobStatus::failed(u"encode error"_s), detail);
}

QString text(const QList<ProxyJob> &jobs)
{
    return diagnosticsText({.generated = QDateTime(QDate(2026, 3, 11), QTime(9, 41, 2)),
                            .versionString = u"2.3 (41)"_s,
                            .systemVersion = u"System 12"_s,
                            .architectureLine = u"Architecture: Intel (x86_64)"_s},
                           jobs, u"ffmpeg version 5"_s);
}

} // namespace

class DiagnosticsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_folder.isValid()); }

    void failedFilesAreListedWithTheirDetail()
    {
        const QString facts = u"Marrowcut diagnostic report\nGenerated: 2026-03-11 09:41:02\n\n"
                              "App version: 2.3 (41)\nmacOS: System 12\n"
                              "Architecture: Intel (x86_64)\nffmpeg: ffmpeg version 5\n\n"_s;
        const QList<ProxyJob> others{job(u"b.mxf"_s, JobStatus::done(), u"old"_s),
                                     job(u"d.mxf"_s, JobStatus::queued())};
        QCOMPARE(text(others), facts + u"No failed files this session."_s);
        QCOMPARE(text(QList{failedJob(u"a 100%#1.mxf"_s, QString())} + others +
                      QList{failedJob(u"c.mov"_s, u"one\n\ntwo\n\n three\n"_s)}),
                 facts + u"Failed files (2):\n"
                         "\n- a 100%#1.mxf\n  Failed: encode error\n"
                         "\n- c.mov\n  Failed: encode error\n"
                         "  ---\n  one\n  two\n   three"_s);
    }

    void aCopyIsOfItsPress()
    {
        QFile::remove(m_mayAnswer);
        QList<ProxyJob> jobs;
        DiagnosticsReport report([&jobs] { return jobs; }, waitingTool(), 60s);
        report.open(this);
        QVERIFY(report.reportText().contains(u"\nffmpeg: …\n"_s));
        jobs << failedJob(u"a.mxf"_s);
        report.copyToClipboard();
        jobs << failedJob(u"b.mxf"_s); // too late for both
        answer();

        QTRY_VERIFY_WITH_TIMEOUT(report.copied(), 60000);
        const QString copied = QGuiApplication::clipboard()->text();
        QVERIFY(copied.contains(u"\nffmpeg: run "_s));
        QVERIFY(copied.endsWith(failedSection(u"a.mxf"_s)));
        QCOMPARE(report.reportText(), copied);

        report.copyToClipboard();
        QTRY_VERIFY_WITH_TIMEOUT(QGuiApplication::clipboard()->text().contains(u"- b.mxf"_s), 60000);
        QVERIFY(QGuiApplication::clipboard()->text().section(u'\n', 6, 6) != copied.section(u'\n', 6, 6));
    }

    void aSheetThatReopensIsFresh()
    {
        QFile::remove(m_mayAnswer);
        QObject second;
        QList<ProxyJob> jobs{failedJob(u"a.mxf"_s)};
        DiagnosticsReport report([&jobs] { return jobs; }, waitingTool(), 60s);
        {
            QObject first;
            report.open(&first);
            report.copyToClipboard();
        }
        jobs.clear();
        report.open(&second);
        QGuiApplication::clipboard()->clear();
        answer();
        QTRY_VERIFY_WITH_TIMEOUT(QGuiApplication::clipboard()->text().endsWith(failedSection(u"a.mxf"_s)), 60000);
        QTRY_VERIFY_WITH_TIMEOUT(report.reportText().contains(u"\nffmpeg: run "_s), 60000);
        QVERIFY(report.reportText().endsWith(u"No failed files this session."_s));
        QVERIFY(!report.copied());

        report.copyToClipboard();
        QTRY_VERIFY_WITH_TIMEOUT(report.copied(), 60000);
        report.open(this);
        QVERIFY(!report.copied());
    }

    void anOpenReportFollowsTheJobs()
    {
        QList<ProxyJob> jobs;
        DiagnosticsReport report([&jobs] { return jobs; }, m_folder.filePath(u"none"_s), 60s);
        report.open(this);
        QTRY_VERIFY_WITH_TIMEOUT(report.reportText().contains(u"\nffmpeg: unavailable\n"_s), 60000);
        QStringList texts;
        connect(&report, &DiagnosticsReport::reportTextChanged, &report,
                [&texts, &report] { texts << report.reportText(); });
        for (const QString &name : {u"a.mxf"_s, u"b.mxf"_s}) {
            report.rebuildLater(); // announced before it is applied
            jobs = {failedJob(name)};
        }
        QTRY_VERIFY(!texts.isEmpty());
        QVERIFY(texts.first().endsWith(failedSection(u"b.mxf"_s)));    // once for both
        QVERIFY(texts.first().contains(u"\nffmpeg: unavailable\n"_s)); // not "…" again
    }

    void versionIsTheFirstLineThatIsNotEmpty()
    {
        const QString unavailable = u"unavailable"_s;
        for (const auto &[path, version] :
             {std::pair(tool(u"printf '\\n\\n  ffmpeg 5 \\nbuilt\\n'"_s), u"  ffmpeg 5 "_s),
              std::pair(tool(u"echo"_s), unavailable), std::pair(tool(u"exec sleep 600"_s), unavailable),
              std::pair(m_folder.filePath(u"none"_s), unavailable)}) {
            DiagnosticsReport report([] { return QList<ProxyJob>(); }, path,
                                     version == unavailable ? 200ms : 60s);
            report.open(this);
            QTRY_VERIFY_WITH_TIMEOUT(report.reportText().contains(u"\nffmpeg: %1\n"_s.arg(version)), 60000);
        }
    }

private:
    static QString failedSection(const QString &name)
    {
        return u"\n\nFailed files (1):\n\n- %1\n  Failed: encode error"_s.arg(name);
    }

    /// Names its process, so that no two runs answer alike, once answer() was called.
    QString waitingTool()
    {
        return tool(u"[ \"$*\" = -version ] || exit; "
                    "until [ -e '%1' ]; do sleep 0.01; done; echo run $$; exit 3"_s.arg(m_mayAnswer));
    }

    void answer() const { QVERIFY(QFile(m_mayAnswer).open(QIODevice::WriteOnly)); }

    QString tool(const QString &script)
    {
        QFile file(m_folder.filePath(u"tool%1"_s.arg(++m_toolCount)));
        if (file.open(QIODevice::WriteOnly))
            file.write("#!/bin/sh\n" + script.toUtf8() + '\n');
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }

    QTemporaryDir m_folder;
    const QString m_mayAnswer = m_folder.filePath(u"answer"_s);
    int m_toolCount = 0;
};

QTEST_MAIN(DiagnosticsTest)

#include "tst_diagnostics.moc"
