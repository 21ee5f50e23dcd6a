// Judges drawn text by its pixels: whatever a name or a tag holds, the picture is the same as with the text
// read from a file, where nothing in it can have a meaning.

#include "media/burn_in_filter.h"
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
    void drawsTheTextAsItIs_data();
    void drawsTheTextAsItIs();
    void craftedTimecodeCannotLeaveItsPlace();

private:
    /// A graph in which the text at the given placeholder is read from a file.
    QString graphFromFile(QString graph, const QString &quotedPlaceholder, const QString &text)
    {
        const QString path = m_folder.filePath(QStringLiteral("text"));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(text.toUtf8());
        return graph.replace(QStringLiteral("text='%1'").arg(quotedPlaceholder),
                             QStringLiteral("textfile='%1':expansion=none").arg(path));
    }

    QString m_font = currentSystemValues().fontFile;
    QTemporaryDir m_folder;
};

void TestDrawnText::drawsTheTextAsItIs_data()
{
    QTest::addColumn<QString>("text");
    const QStringList texts = {
        QStringLiteral("A001.mxf"),
        QStringLiteral("it's"),
        QStringLiteral("''"),
        QStringLiteral("a:b"),
        QStringLiteral("a\\b"),
        QStringLiteral("a\\:b\\'c"),
        QStringLiteral("trailing\\"),
        QStringLiteral("100%"),
        QStringLiteral("%{pts}"),
        QStringLiteral("%{metadata:x:y}'%"),
        QStringLiteral("\\%{n}"),
        QStringLiteral("%%"),
        QStringLiteral("%Y-%m"),
        QStringLiteral("[v];[0:v]null"),
        QStringLiteral("a,b;c=d"),
        QStringLiteral("x':textfile='/etc/passwd"),
        QStringLiteral("x\\':text=\\'y"),
        QStringLiteral("',drawbox,drawtext=text='"),
        QStringLiteral("-leading dash"),
        QStringLiteral(" leading and trailing "),
        QStringLiteral("\ttab\tinside\t"),
        QStringLiteral("line\nbreak"),
        QStringLiteral("carriage\rreturn"),
        QStringLiteral("\"double\" `back` $HOME"),
        QStringLiteral("#hash?query&amp"),
        QStringLiteral("é ü ß Ł ø"),
        QStringLiteral("e\u0301 combining"),
        QStringLiteral("日本語 clip"),
        QStringLiteral("emoji 🎬"),
        QStringLiteral("עברית שלום"),
        QStringLiteral("عربي 50% 'x'"),
        QStringLiteral("{}()<>|*~^"),
        QStringLiteral("a  double  space"),
        QStringLiteral(" "),
        QString(120, QLatin1Char('n')),
    };
    for (const QString &text : texts)
        QTest::newRow(qPrintable(text)) << text;
}

void TestDrawnText::drawsTheTextAsItIs()
{
    QFETCH(QString, text);
    const QByteArray drawn = grayFrame(overGray(buildFilter(inputsWith(text, text), m_font)));

    const QString holder = QStringLiteral("HOLDER");
    QString reference = buildFilter(inputsWith(holder, QStringLiteral("unavailable")), m_font);
    reference = graphFromFile(reference, holder, text);
    // The date has its own file: the same text behind its fixed label.
    const QString datePath = m_folder.filePath(QStringLiteral("date"));
    QFile date(datePath);
    QVERIFY(date.open(QIODevice::WriteOnly));
    date.write((QStringLiteral("FILE DATE  ") + text).toUtf8());
    date.close();
    reference.replace(QStringLiteral("text='FILE DATE  unavailable'"),
                      QStringLiteral("textfile='%1':expansion=none").arg(datePath));

    QVERIFY(!drawn.isEmpty());
    QCOMPARE(drawn, grayFrame(overGray(reference)));
}

void TestDrawnText::craftedTimecodeCannotLeaveItsPlace()
{
    // The tool reads a timecode and leaves what follows it; as options it would have another text drawn.
    FilterInputs inputs = inputsWith(QStringLiteral("a.mov"), QStringLiteral("unavailable"));
    inputs.srcTC = QStringLiteral("10:00:00:00");
    const QByteArray plain = grayFrame(overGray(buildFilter(inputs, m_font)));
    inputs.srcTC = QStringLiteral("10:00:00:00':text='leak");
    QVERIFY(!plain.isEmpty());
    QCOMPARE(grayFrame(overGray(buildFilter(inputs, m_font))), plain);
}

QTEST_GUILESS_MAIN(TestDrawnText)
#include "tst_drawn_text.moc"
