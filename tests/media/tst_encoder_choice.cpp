// Which encoder is chosen over stand-in tools that pretend.

#include "media/encoder_choice.h"
#include "support/stand_in_script.h"

#include <QTest>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::media;

class TestEncoderChoice : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void firstThatWorksIsChosen()
    {
        const QByteArray counted = "when ffprobe -count_frames\nout 10\\n\nend\n";
        const QByteArray secondWorks = counted + "when h264_qsv\nwrite-output\nend\n";
        for (const auto &[script, chosen] :
             {std::pair(counted + "write-output\n", "h264_nvenc"),
              std::pair("when h264_nvenc\nwrite-output\nexit 1\nend\n" + secondWorks, "h264_qsv"),
              std::pair(secondWorks, "h264_qsv"), // the first writes no file
              std::pair(QByteArray("when ffprobe\nout 9\\n\nend\nwrite-output\n"),
                        "libx264"), // one frame is missing
              std::pair(QByteArray("exit 1\n"), "libx264")}) {
            m_script.set(script);
            QCOMPARE(EncoderChoice().resolve(anywhere(), QualityPreset::standard).name,
                     QLatin1String(chosen));
        }
    }

    void failureIsTheToolsMessage()
    {
        const SystemValues system = anywhere();
        m_script.set("note @/call\nerr Cannot load libcuda.so.1\\n\nexit 1\n");
        QCOMPARE(encoderTestFailure(system.with(system.hardwareEncoders[0]), QualityPreset::tiny),
                 u"Cannot load libcuda.so.1"_s);
        const QByteArray call = m_script.contents(u"call"_s);
        QVERIFY(call.contains("\nlavfi\n-i\n"));
        QVERIFY(call.contains("scale=480:-2,drawtext="));
        QVERIFY(call.contains("\n-c:v\nh264_nvenc\n-b:v\n700k\n"));

        m_script.set("ignore-term\nwait-for @/never\n");
        QCOMPARE(encoderTestFailure(system, QualityPreset::standard, std::chrono::milliseconds(50)),
                 u"The test encode exceeded the time limit."_s);
    }

    void testEncodesAreMadeOnceAndOnlyWhereHardwareIsPresent()
    {
        m_script.set("note @/tests\nexit 1\n");
        EncoderChoice choice;
        choice.resolve(anywhere(), QualityPreset::standard);
        choice.resolve(anywhere(), QualityPreset::tiny);
        QCOMPARE(m_script.contents(u"tests"_s).count("-c:v"), 2);

        SystemValues bare = anywhere();
        for (VideoEncoder &encoder : bare.hardwareEncoders)
            encoder.devicePaths = {m_script.path(u"no such device"_s)};
        QCOMPARE(EncoderChoice().resolve(bare, QualityPreset::standard), bare.videoEncoder);
        QCOMPARE(EncoderChoice(bare.hardwareEncoders[1]).resolve(bare, QualityPreset::standard).name,
                 u"h264_qsv"_s);
        QCOMPARE(m_script.contents(u"tests"_s).count("-c:v"), 2);
    }

private:
    /// The Linux row, as on a machine that may have any hardware.
    static SystemValues anywhere()
    {
        SystemValues system = linuxValues(u"/f.ttf"_s);
        for (VideoEncoder &encoder : system.hardwareEncoders)
            encoder.devicePaths.clear();
        return system;
    }

    StandInScript m_script;
};

QTEST_GUILESS_MAIN(TestEncoderChoice)
#include "tst_encoder_choice.moc"
