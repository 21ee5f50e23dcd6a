// Judges drawn text by its pixels: whatever a name or a tag holds, the picture is the same as with the text
// read from a file, where nothing in it can have a meaning.

#include "media/burn_in_filter.h"
#include "media/proxy_format.h"
#include "media/system_values.h"
#include "support/real_tools.h"

#include <QTest>

using namespace marrowcut;
using namespace marrowcut::media;
using namespace marrowcut::testing;

namespace
{

FilterInputs inputsWith(const QString &filename, const QString &fileDate)
{
    return {.filename = filename,
            .srcTC = QStringLiteral("01:02:03:04"),
            .elapsedTC = QStringLiteral("00:00:00:00"),
            .rate = QStringLiteral("25/1"),
            .audioCount = 0,
            .fileDate = fileDate,
            .preset = QualityPreset::smaller,
            .burnInEnabled = true};
}

bool isGray(char brightness)
{
    return std::abs(int(uchar(brightness)) - 128) < 8;
}

QStringList overGray(const QString &graph)
{
    return words(QStringLiteral("-f lavfi -i color=gray:s=720x404:r=25 -filter_complex")) +
           QStringList{graph, QStringLiteral("-map"), QStringLiteral("[v]")};
}

} // namespace

class TestDrawnText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void drawsTheTextAsItIs_data()
    {
        QTest::addColumn<QString>("text");
        const QStringList texts = {
            QStringLiteral("it's"),
            QStringLiteral("''"),
            QStringLiteral("a\\:b\\'c"),
            QStringLiteral("trailing\\"),
            QStringLiteral("%{metadata:x:y}'%"),
            QStringLiteral("\\%{n}"),
            QStringLiteral("[v];[0:v]null"),
            QStringLiteral("x':textfile='/etc/passwd"),
            QStringLiteral("',drawbox,drawtext=text='"),
            QStringLiteral(" leading and trailing "),
            QStringLiteral("\ttab\tinside\t"),
            QStringLiteral("line\nbreak"),
            QStringLiteral("carriage\rreturn"),
            QStringLiteral("e\u0301 combining"),
            QStringLiteral("emoji 🎬"),
            QStringLiteral("عربي 50% 'x'"),
            QStringLiteral(" "),
        };
        for (const QString &text : texts)
            QTest::newRow(qPrintable(text)) << text;
    }

    void drawsTheTextAsItIs()
    {
        QFETCH(QString, text);
        const QByteArray drawn = grayFrame(overGray(buildFilter(inputsWith(text, text), m_font)));

        QString reference =
            buildFilter(inputsWith(QStringLiteral("HOLDER"), QStringLiteral("unavailable")), m_font);
        readFromFile(reference, QStringLiteral("HOLDER"), text);
        readFromFile(reference, QStringLiteral("FILE DATE  unavailable"),
                     QStringLiteral("FILE DATE  ") + text);
        QVERIFY(!drawn.isEmpty());
        QCOMPARE(drawn, grayFrame(overGray(reference)));
    }

    void textsKeepApartWithinThePicture()
    {
        for (const QualityPreset preset : QualityPreset::allCases) {
            FilterInputs inputs =
                inputsWith(QStringLiteral("A001C001_230501_R1AB.mxf"), QStringLiteral("2023-05-01 12:34:56"));
            inputs.preset = preset;
            const QByteArray frame = grayFrame(overGray(buildFilter(inputs, m_font)));
            const int width = proxyFormat(preset).width;
            QByteArray rows; // x where something is drawn
            for (qsizetype at = 0; at < frame.size(); at += width) {
                const QByteArrayView row = QByteArrayView(frame).sliced(at, width);
                QVERIFY(isGray(row.front()) && isGray(row.back()));
                rows += std::ranges::all_of(row, isGray) ? ' ' : 'x';
            }
            QCOMPARE(rows.simplified().split(' ').size(), 4); // name, source, elapsed, date
            QVERIFY(rows.startsWith(' ') && rows.endsWith(' '));
        }
    }

    void craftedTimecodeCannotLeaveItsPlace()
    {
        // The tool reads a timecode and leaves what follows it; as options it would have another text drawn.
        FilterInputs inputs = inputsWith(QStringLiteral("a.mov"), QStringLiteral("unavailable"));
        inputs.srcTC = QStringLiteral("10:00:00:00");
        const QByteArray plain = grayFrame(overGray(buildFilter(inputs, m_font)));
        inputs.srcTC = QStringLiteral("10:00:00:00':text='leak");
        QVERIFY(!plain.isEmpty());
        QCOMPARE(grayFrame(overGray(buildFilter(inputs, m_font))), plain);
    }

private:
    /// A graph in which the given text is read from a file.
    void readFromFile(QString &graph, const QString &quotedText, const QString &text)
    {
        const QString path = m_folder.filePath(QString::number(++m_fileCount));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        graph.replace(QStringLiteral("text='%1'").arg(quotedText),
                      QStringLiteral("textfile='%1':expansion=none").arg(path));
    }

    QString m_font = currentSystemValues().fontFile;
    QTemporaryDir m_folder;
    int m_fileCount = 0;
};

QTEST_GUILESS_MAIN(TestDrawnText)
#include "tst_drawn_text.moc"
