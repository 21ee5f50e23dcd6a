#include "media/ffmpeg_locator.h"
#include "media/process_runner.h"
#include "support/stand_in_script.h"

#include <QTest>

#include <csignal>

using namespace marrowcut;
using namespace Qt::StringLiterals;

class TestProcessRunner : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void capturesBothStreamsAndTheStatus()
    {
        const auto result = run("out one\\n\nerr two\nexit 255\n");
        QCOMPARE(result.stdout, u"one\n"_s);
        QCOMPARE(result.stderr, u"two"_s);
        QCOMPARE(result.status, 255);

        const auto invalid = run("out \\xFF\nerr fine\nsignal 6\n");
        QCOMPARE(invalid.stdout, QString());
        QCOMPARE(invalid.stderr, u"fine"_s);
        QCOMPARE(invalid.status, -SIGABRT);
    }

    void survivesAFloodOnBothStreams()
    {
        const auto result = run("flood 2097152\nout \\xE2\\x82\\xAC\n");
        QCOMPARE(result.stdout.size(), media::ProcessRunner::keptOutput);
        QCOMPARE(result.stderr.size(), media::ProcessRunner::keptErrorOutput);

        // 3 does not divide what is kept: the first character's beginning is gone.
        const auto cut = run("err " + QByteArray("\u20ac").repeated(30000) + "\\nlast\\n\n");
        QVERIFY(cut.stderr.startsWith(QChar(0x20ac)) && cut.stderr.endsWith(u"\nlast\n"_s));

        int lines = 0;
        m_script.set("flood 1048576\nendless 3000000\nerr \\nlast\\n\n");
        QString last;
        stream([&](const QString &line) {
            ++lines;
            last = line;
        });
        QCOMPARE(lines, 1024 + 1);
        QCOMPARE(last, u"last"_s);
    }

    void streamsLines()
    {
        m_script.set(
            "out not counted\\n\nerr frame=1 time=00:00\nerr :04.00\\rb\\r\\nno\\xFFtext\\n\\xC3\nerr "
            "\\xA9\\nrest\nexit 7\n");
        QStringList lines;
        QCOMPARE(stream([&](const QString &line) { lines.append(line); }), 7);
        QCOMPARE(lines, (QStringList{u"frame=1 time=00:00:04.00"_s, u"b"_s, u"é"_s}));
    }

    void waitsForAChildThatClosedItsErrorOutput()
    {
        m_script.set("err a\\n\nclose-err\nout x\nwait-for @/go\nexit 5\n");
        QCOMPARE(stream([this](const QString &) { m_script.touch(u"go"_s); }), 5);
    }

    void signalsToTheWholeGroupSpareTheChild() // it is ended with the program, not before
    {
        for (const char *signal : {"HUP", "INT", "QUIT", "TERM"})
            QCOMPARE(run(QByteArray("signal ") + signal + "\nexit 5\n").status, 5);
    }

private:
    media::ProcessRunner::CapturedResult run(const QByteArray &script)
    {
        m_script.set(script);
        return media::ProcessRunner::run(media::FFmpegLocator::ffmpegPath(), {});
    }

    static qint32 stream(const std::function<void(const QString &)> &onLine)
    {
        return media::ProcessRunner::runStreaming(media::FFmpegLocator::ffmpegPath(), {}, onLine);
    }

    StandInScript m_script;
};

QTEST_GUILESS_MAIN(TestProcessRunner)
#include "tst_process_runner.moc"
