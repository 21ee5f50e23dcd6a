#include "shown_window.h"

#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <ctime>

using namespace marrowcut;

void show(QQuickView &view, QSize size, QueueViewModel *model, HelpState &helpState,
          DiagnosticsReport &report)
{
    view.setInitialProperties({{QStringLiteral("queue"), QVariant::fromValue(model)},
                               {QStringLiteral("helpState"), QVariant::fromValue(&helpState)},
                               {QStringLiteral("report"), QVariant::fromValue(&report)}});
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Marrowcut/Main/ContentView.qml")));
    view.resize(size);
    view.show();
    runEventLoop(1000);
}

QList<QUrl> clips(int count)
{
    QList<QUrl> urls;
    for (int number = 0; number < count; ++number)
        urls.append(
            QUrl::fromLocalFile(QStringLiteral("/footage/A001C%1.mxf").arg(number, 5, 10, QLatin1Char('0'))));
    return urls;
}

QList<QUrl> fill(const QTemporaryDir &folder, int count)
{
    QList<QUrl> files;
    for (const QUrl &clip : clips(count)) {
        files.append(QUrl::fromLocalFile(folder.filePath(clip.fileName())));
        QFile(files.last().toLocalFile()).open(QIODevice::WriteOnly);
    }
    return files;
}

void runEventLoop(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}
