#pragma once

#include <QString>
#include <QUrl>

namespace marrowcut
{

/// Where everything that is written for a clip goes. All paths are absolute.
struct OutputPaths {
    QString outDir;         ///< the folder marrowcut_proxies beside the source
    QString sourceFilename; ///< the source's name with its extension
    QString proxyFilename;  ///< the source's name without its last extension, then "_proxy.mp4"
    QString finalOutput;
    QString tmpOutput;  ///< hidden; what an encoder writes before the last move
    QString workFolder; ///< hidden; holds the pieces of a long clip
    QString manifest;

    static OutputPaths forSource(const QUrl &sourceURL);
};

/// The name of every output folder.
QString outputFolderName();

/// The output folder alone.
QUrl outputFolder(const QUrl &sourceURL);

} // namespace marrowcut
