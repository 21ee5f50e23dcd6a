// The least that a Qt Quick program can show: what the application's start is measured against.

#include <QGuiApplication>
#include <QQuickView>
#include <QQuickWindow>

int main(int argc, char *argv[])
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    QQuickView view;
    view.setTitle(QStringLiteral("Empty"));
    view.resize(480, 460);
    view.show();
    return QCoreApplication::exec();
}
