#include "ui/shell/command_line.h"

#include <QDir>
#include <QTest>

using namespace marrowcut;

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
        return parseCommandLine(std::span(pointers.data(), pointers.size()), QStringLiteral("1.0 (1)"));
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
        QCOMPARE(paths, (QStringList{QStringLiteral("/clips/Shoot #3/a%20.mov"),
                                     here + QStringLiteral("/b.mxf"), QStringLiteral("/clips/c d.mp4"),
                                     QStringLiteral("/e.mov"), here + QStringLiteral("/--odd.mov")}));
    }
};

QTEST_GUILESS_MAIN(WindowCommandLineTest)
#include "tst_window_command_line.moc"
