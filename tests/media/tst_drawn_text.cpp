// Judges drawn text by its pixels: whatever a name or a tag holds, the picture is the same as with the text
// read from a file, where nothing in it can have a meaning.

#include "media/burn_in_filter.h"
#include "media/proxy_format.h"
#include "media/system_values.h"
#include "support/real_tools.h"

#include <QTest>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::media;
using namespace marrowcut::testing;

namespace
{

FilterInputs inputsWith(const QString &filename, const QString &fileDate)
{
    return {.filename = filename,
            .srcTC = u"01:02:03:04"_s,
            .elapsedTC = u"00:00:00:00"_s,
            .rate = u"25/1"_s,
            .fileDate = fileDate,
            .preset = QualityPreset::smaller};
}

bool isGray(char brightness)
{
    return std::abs(int(uchar(brightness)) - 128) < 8;
}

QStringList overGray(const QString &graph)
{
    return words(u"-f lavfi -i color=gray:s=720x404:r=25 -filter_complex"_s) +
           QStringList{graph, u"-map"_s, u"[v]"_s};
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
            u"it's"_s,
            u"''"_s,
            u"a\\:b\\'c"_s,
            u"trailing\\"_s,
            u"%{metadata:x:y}'%"_s,
            u"\\%{n}"_s,
            u"[v];[0:v]null"_s,
            u"x':textfile='/etc/passwd"_s,
            u"',drawbox,drawtext=text='"_s,
            u" leading and trailing "_s,
            u"\ttab\tinside\t"_s,
            u"line\nbreak"_s,
            u"carriage\rreturn"_s,
            u"e\u0301 combining"_s,
            u"emoji 🎬"_s,
            u"عربي 50% 'x'"_s,
            u" "_s,
        };
        for (const QString &text : texts)
            QTest::newRow(qPrintable(text)) << text;
    }

    void drawsTheTextAsItIs()
    {
        QFETCH(QString, text);
        const QByteArray drawn = grayFrame(overGray(buildFilter(inputsWith(text, text), m_font)));

        QString reference = buildFilter(inputsWith(u"HOLDER"_s, u"unavailable"_s), m_font);
        readFromFile(reference, u"HOLDER"_s, text);
        readFromFile(reference, u"FILE DATE  unavailable"_s, u"FILE DATE  "_s + text);
        QVERIFY(!drawn.isEmpty());
        QCOMPARE(drawn, grayFrame(overGray(reference)));
    }

    void textsKeepApartWithinThePicture()
    {
        for (const QualityPreset preset : QualityPreset::allCases) {
            FilterInputs inputs = inputsWith(u"A001C001_230501_R1AB.mxf"_s, u"2023-05-01 12:34:56"_s);
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
        FilterInputs inputs = inputsWith(u"a.mov"_s, u"unavailable"_s);
        inputs.srcTC = u"10:00:00:00"_s;
        const QByteArray plain = grayFrame(overGray(buildFilter(inputs, m_font)));
        inputs.srcTC = u"10:00:00:00':text='leak"_s;
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
        graph.replace(u"text='%1'"_s.arg(quotedText), u"textfile='%1':expansion=none"_s.arg(path));
    }

    QString m_font = currentSystemValues().fontFile;
    QTemporaryDir m_folder;
    int m_fileCount = 0;
};

QTEST_GUILESS_MAIN(TestDrawnText)
#include "tst_drawn_text.moc"
