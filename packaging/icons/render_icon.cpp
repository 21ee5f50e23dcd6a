// Draws an icon as a square PNG while the program is built: render-icon DRAWING.svg SIZE ICON.png
// Qt's own reader, which the window uses too, saves the build from depending on another renderer.

#include <QCoreApplication>
#include <QImageReader>
#include <QTextStream>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv); // knows where Qt's image plugins are
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        return 2;

    const int size = arguments[2].toInt();
    QImageReader drawing(arguments[1]);
    drawing.setScaledSize(QSize(size, size));
    const QImage icon = drawing.read();
    if (!icon.isNull() && icon.save(arguments[3], "PNG"))
        return 0;
    QTextStream(stderr) << "render-icon: " << arguments[1] << ": " << drawing.errorString() << '\n';
    return 1;
}
