#include "media/ffmpeg_locator.h"
#include "media/process_runner.h"
#include "platform/interrupted.h"
#include "support/stand_in_script.h"

#include <QTest>

#include <csignal>
#include <stop_token>

using namespace marrowcut;

namespace
{

bool processLives(qint64 pid)
{
    return pid > 0 && kill(static_cast<pid_t>(pid), 0) == 0;
}

} // namespace

class TestProcessRunner : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void capturesBothStreams();
    void statusOfExitAndSignal();
    void survivesAFloodOnBothStreams();
    void streamsLines();
    void waitsForAChildThatClosedItsErrorOutput();
    void launchFailures();
    void stopKillsTheChild();

private:
    ProcessRunner::CapturedResult run(const QByteArray &script, const QStringList &arguments = {})
    {
        m_script.set(script);
        return ProcessRunner::run(FFmpegLocator::ffmpegPath(), arguments);
    }

    StandInScript m_script;
};

void TestProcessRunner::capturesBothStreams()
{
    const auto result = run("out one\\n\nerr two\nexit 3\n");
    QCOMPARE(result.stdout, QStringLiteral("one\n"));
    QCOMPARE(result.stderr, QStringLiteral("two"));
    QCOMPARE(result.status, 3);

    const auto invalid = run("out \\xFF\nerr fine\n");
    QCOMPARE(invalid.stdout, QString());
    QCOMPARE(invalid.stderr, QStringLiteral("fine"));
}

void TestProcessRunner::statusOfExitAndSignal()
{
    QCOMPARE(run("exit 255\n").status, 255);
    QCOMPARE(run("signal 6\n").status, 128 + SIGABRT);
    QCOMPARE(run("signal 9\n").status, 128 + SIGKILL);
}

void TestProcessRunner::survivesAFloodOnBothStreams()
{
    const auto result = run("flood 1048576\n");
    QCOMPARE(result.stdout.size(), 1048576);
    QCOMPARE(result.stderr.size(), ProcessRunner::keptErrorOutput);

    // 3 does not divide what is kept: the first character's beginning is gone.
    const auto cut = run("err " + QByteArray("\u20ac").repeated(30000) + "\\nlast\\n\n");
    QVERIFY(cut.stderr.startsWith(QChar(0x20ac)) && cut.stderr.endsWith(QStringLiteral("\nlast\n")));

    int lines = 0;
    m_script.set("flood 1048576\nendless 3000000\nerr \\nlast\\n\n");
    QString last;
    ProcessRunner::runStreaming(FFmpegLocator::ffmpegPath(), {}, [&](const QString &line) {
        ++lines;
        last = line;
    });
    QCOMPARE(lines, 1024 + 1);
    QCOMPARE(last, QStringLiteral("last"));
}

void TestProcessRunner::streamsLines()
{
    m_script.set("out not counted\\n\nerr frame=1 time=00:00\nerr :04.00\\rb\\nrest\nexit 7\n");
    QStringList lines;
    const auto onLine = [&](const QString &line) { lines.append(line); };
    QCOMPARE(ProcessRunner::runStreaming(FFmpegLocator::ffmpegPath(), {}, onLine), 7);
    QCOMPARE(lines, (QStringList{QStringLiteral("frame=1 time=00:00:04.00"), QStringLiteral("b")}));
}

void TestProcessRunner::waitsForAChildThatClosedItsErrorOutput()
{
    m_script.set("err a\\n\nclose-err\nout x\nwait-for @/go\nexit 5\n");
    const auto onLine = [this](const QString &) { m_script.touch(QStringLiteral("go")); };
    QCOMPARE(ProcessRunner::runStreaming(FFmpegLocator::ffmpegPath(), {}, onLine), 5);
}

void TestProcessRunner::launchFailures()
{
    const auto never = [](const QString &) { QFAIL("a line without a child"); };
    for (const QString &path : {m_script.path(QStringLiteral("missing")), m_script.folder()}) {
        QVERIFY_THROWS_EXCEPTION(ProcessRunner::LaunchError, ProcessRunner::run(path, {}));
        QVERIFY_THROWS_EXCEPTION(ProcessRunner::LaunchError, ProcessRunner::runStreaming(path, {}, never));
    }
}

void TestProcessRunner::stopKillsTheChild()
{
    m_script.set("ignore-term\npid @/pid\nerr up\\n\nwait-for @/never\n");
    std::stop_source source;
    const auto stopAtFirstLine = [&](const QString &) { source.request_stop(); };
    QVERIFY_THROWS_EXCEPTION(Interrupted,
                             ProcessRunner::runStreaming(FFmpegLocator::ffmpegPath(), {}, stopAtFirstLine,
                                                         {.stop = source.get_token()}));
    QVERIFY(!processLives(m_script.contents(QStringLiteral("pid")).toLongLong()));
    // A stop that came before is heard before anything is started.
    QVERIFY_THROWS_EXCEPTION(Interrupted, ProcessRunner::run(m_script.path(QStringLiteral("missing")), {},
                                                             {.stop = source.get_token()}));
}

QTEST_GUILESS_MAIN(TestProcessRunner)
#include "tst_process_runner.moc"
