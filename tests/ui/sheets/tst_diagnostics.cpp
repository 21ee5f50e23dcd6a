#include "ui/sheets/diagnostics_report.h"
#include "ui/sheets/diagnostics_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

using namespace marrowcut;
using namespace std::chrono_literals;

namespace
{

ProxyJob job(const QString &name, const JobStatus &status, std::optional<QString> detail = {})
{
    ProxyJob made = ProxyJob::forSource(QUrl::fromLocalFile(QStringLiteral("/clips/") + name));
    made.status = status;
    made.errorDetail = detail;
    return made;
}

ProxyJob failedJob(const QString &name, std::optional<QString> detail = {})
{
    return job(name, JobStatus::failed(QStringLiteral("encode error")), detail);
}

QString text(const QList<ProxyJob> &jobs)
{
    return diagnosticsText({.generated = QDateTime(QDate(2026, 3, 11), QTime(9, 41, 2)),
                            .versionString = QStringLiteral("2.3 (41)"),
                            .systemVersion = QStringLiteral("System 12"),
                            .architectureLine = QStringLiteral("Architecture: Intel (x86_64)")},
                           jobs, QStringLiteral("ffmpeg version 5"));
}

} // namespace

class DiagnosticsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_folder.isValid()); }

    void failedFilesAreListedWithTheirDetail()
    {
        const QString facts = QStringLiteral("Marrowcut diagnostic report\nGenerated: 2026-03-11 09:41:02\n\n"
                                             "App version: 2.3 (41)\nmacOS: System 12\n"
                                             "Architecture: Intel (x86_64)\nffmpeg: ffmpeg version 5\n\n");
        const QList<ProxyJob> others{job(QStringLiteral("b.mxf"), JobStatus::done(), QStringLiteral("old")),
                                     job(QStringLiteral("d.mxf"), JobStatus::queued())};
        QCOMPARE(text(others), facts + QStringLiteral("No failed files this session."));
        QCOMPARE(text(QList{failedJob(QStringLiteral("a 100%#1.mxf"), QString())} + others +
                      QList{failedJob(QStringLiteral("c.mov"), QStringLiteral("one\n\ntwo\n\n three\n"))}),
                 facts + QStringLiteral("Failed files (2):\n"
                                        "\n- a 100%#1.mxf\n  Failed: encode error\n"
                                        "\n- c.mov\n  Failed: encode error\n"
                                        "  ---\n  one\n  two\n   three"));
    }

    void aCopyIsOfItsPress()
    {
        QFile::remove(m_mayAnswer);
        QList<ProxyJob> jobs;
        DiagnosticsReport report([&jobs] { return jobs; }, waitingTool(), 60s);
        report.open(this);
        QVERIFY(report.reportText().contains(QStringLiteral("\nffmpeg: …\n")));
        jobs << failedJob(QStringLiteral("a.mxf"));
        report.copyToClipboard();
        jobs << failedJob(QStringLiteral("b.mxf")); // too late for both
        answer();

        QTRY_VERIFY(report.copied());
        const QString copied = QGuiApplication::clipboard()->text();
        QVERIFY(copied.contains(QStringLiteral("\nffmpeg: run ")));
        QVERIFY(copied.endsWith(failedSection(QStringLiteral("a.mxf"))));
        QCOMPARE(report.reportText(), copied);

        report.copyToClipboard();
        QTRY_VERIFY(QGuiApplication::clipboard()->text().contains(QStringLiteral("- b.mxf")));
        QVERIFY(QGuiApplication::clipboard()->text().section(u'\n', 6, 6) != copied.section(u'\n', 6, 6));
    }

    void aSheetThatReopensIsFresh()
    {
        QFile::remove(m_mayAnswer);
        QObject second;
        QList<ProxyJob> jobs{failedJob(QStringLiteral("a.mxf"))};
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
        QTRY_VERIFY(QGuiApplication::clipboard()->text().endsWith(failedSection(QStringLiteral("a.mxf"))));
        QTRY_VERIFY(report.reportText().contains(QStringLiteral("\nffmpeg: run ")));
        QVERIFY(report.reportText().endsWith(QStringLiteral("No failed files this session.")));
        QVERIFY(!report.copied());

        report.copyToClipboard();
        QTRY_VERIFY(report.copied());
        report.open(this);
        QVERIFY(!report.copied());
    }

    void anOpenReportFollowsTheJobs()
    {
        QList<ProxyJob> jobs;
        DiagnosticsReport report([&jobs] { return jobs; }, m_folder.filePath(QStringLiteral("none")), 60s);
        report.open(this);
        QTRY_VERIFY(report.reportText().contains(QStringLiteral("\nffmpeg: unavailable\n")));
        QStringList texts;
        connect(&report, &DiagnosticsReport::reportTextChanged, &report,
                [&texts, &report] { texts << report.reportText(); });
        for (const QString &name : {QStringLiteral("a.mxf"), QStringLiteral("b.mxf")}) {
            report.rebuildLater(); // announced before it is applied
            jobs = {failedJob(name)};
        }
        QTRY_VERIFY(!texts.isEmpty());
        QVERIFY(texts.first().endsWith(failedSection(QStringLiteral("b.mxf"))));    // once for both
        QVERIFY(texts.first().contains(QStringLiteral("\nffmpeg: unavailable\n"))); // not "…" again
    }

    void versionIsTheFirstLineThatIsNotEmpty()
    {
        const QString unavailable = QStringLiteral("unavailable");
        for (const auto &[path, version] :
             {std::pair(tool(QStringLiteral("printf '\\n\\n  ffmpeg 5 \\nbuilt\\n'")),
                        QStringLiteral("  ffmpeg 5 ")),
              std::pair(tool(QStringLiteral("echo")), unavailable),
              std::pair(tool(QStringLiteral("exec sleep 600")), unavailable),
              std::pair(m_folder.filePath(QStringLiteral("none")), unavailable)}) {
            DiagnosticsReport report([] { return QList<ProxyJob>(); }, path,
                                     version == unavailable ? 200ms : 60s);
            report.open(this);
            QTRY_VERIFY(report.reportText().contains(QStringLiteral("\nffmpeg: %1\n").arg(version)));
        }
    }

private:
    static QString failedSection(const QString &name)
    {
        return QStringLiteral("\n\nFailed files (1):\n\n- %1\n  Failed: encode error").arg(name);
    }

    /// Names its process, so that no two runs answer alike, once answer() was called.
    QString waitingTool()
    {
        return tool(QStringLiteral("[ \"$*\" = -version ] || exit; "
                                   "until [ -e '%1' ]; do sleep 0.01; done; echo run $$; exit 3")
                        .arg(m_mayAnswer));
    }

    void answer() const { QVERIFY(QFile(m_mayAnswer).open(QIODevice::WriteOnly)); }

    QString tool(const QString &script)
    {
        QFile file(m_folder.filePath(QStringLiteral("tool%1").arg(++m_toolCount)));
        if (file.open(QIODevice::WriteOnly))
            file.write("#!/bin/sh\n" + script.toUtf8() + '\n');
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }

    QTemporaryDir m_folder;
    const QString m_mayAnswer = m_folder.filePath(QStringLiteral("answer"));
    int m_toolCount = 0;
};

QTEST_MAIN(DiagnosticsTest)

#include "tst_diagnostics.moc"
