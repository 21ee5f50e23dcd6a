// The least that a Qt Quick program can show: what the application's start is measured against. With the
// argument "software" it draws without OpenGL, as the application does where there is no graphics hardware.

#include <QGuiApplication>
#include <QQuickView>
#include <QQuickWindow>

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(QStringLiteral("software")))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickView view;
    view.setTitle(QStringLiteral("Empty"));
    view.resize(480, 460);
    view.show();
    return QCoreApplication::exec();
}
