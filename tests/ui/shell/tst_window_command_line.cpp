#include "ui/shell/command_line.h"

#include <QDir>
#include <QTest>

using namespace marrowcut;
using namespace Qt::StringLiterals;

class WindowCommandLineTest : public QObject
{
    Q_OBJECT

private:
    static CommandLine parsed(QList<QByteArray> arguments)
    {
        arguments.prepend("marrowcut");
        QList<char *> pointers;
        for (QByteArray &argument : arguments)
            pointers.append(argument.data());
        return parseCommandLine(std::span(pointers.data(), pointers.size()), u"1.0 (1)"_s);
    }

private Q_SLOTS:
    void pathsBecomeAbsoluteFileUrls()
    {
        const QString here = QDir::currentPath();
        const CommandLine line = parsed({"/clips//Shoot #3/./a%20.mov", "b.mxf", "file:///clips/c%20d.mp4",
                                         "file://localhost/e.mov", "--", "--odd.mov", "\xff.mov"});
        QCOMPARE(line.error, QString());
        QStringList paths;
        for (const QUrl &item : line.items)
            paths.append(item.toLocalFile());
        QCOMPARE(paths, (QStringList{u"/clips/Shoot #3/a%20.mov"_s, here + u"/b.mxf"_s, u"/clips/c d.mp4"_s,
                                     u"/e.mov"_s, here + u"/--odd.mov"_s}));
    }
};

QTEST_GUILESS_MAIN(WindowCommandLineTest)
#include "tst_window_command_line.moc"
