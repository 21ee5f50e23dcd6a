#include "engine/model/output_paths.h"

#include <QFileInfo>

namespace marrowcut
{

namespace
{

QString outputFolderPath(const QString &sourcePath)
{
    const QString folder = sourcePath.left(sourcePath.lastIndexOf(QLatin1Char('/')));
    return folder + QLatin1Char('/') + outputFolderName();
}

} // namespace

OutputPaths OutputPaths::forSource(const QUrl &sourceURL)
{
    const QString source = sourceURL.toLocalFile();
    const QFileInfo info(source);
    OutputPaths paths;
    paths.outDir = outputFolderPath(source);
    paths.sourceFilename = info.fileName();
    paths.proxyFilename = info.completeBaseName() + QStringLiteral("_proxy.mp4");
    paths.finalOutput = paths.outDir + QLatin1Char('/') + paths.proxyFilename;
    paths.tmpOutput = paths.outDir + QStringLiteral("/.tmp_") + paths.proxyFilename;
    paths.workFolder = paths.outDir + QStringLiteral("/.chunks_") + info.completeBaseName();
    paths.manifest = paths.outDir + QStringLiteral("/manifest.csv");
    return paths;
}

QString outputFolderName()
{
    return QStringLiteral("marrowcut_proxies");
}

QUrl outputFolder(const QUrl &sourceURL)
{
    return QUrl::fromLocalFile(outputFolderPath(sourceURL.toLocalFile()));
}

} // namespace marrowcut
