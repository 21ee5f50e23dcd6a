#include "platform/file_names.h"

#include <QDir>
#include <QStringDecoder>
#include <QStringList>
#include <QSysInfo>

namespace marrowcut
{

QString absolutePath(const QString &path)
{
    const QString absolute =
        path.startsWith(QLatin1Char('/')) ? path : QDir::currentPath() + QLatin1Char('/') + path;
    QStringList parts = absolute.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    parts.removeAll(QStringLiteral("."));
    return QLatin1Char('/') + parts.join(QLatin1Char('/'));
}

std::optional<QUrl> localFileUrl(QUrl url)
{
    const QStringList ownNames = {QString(), QStringLiteral("localhost"),
                                  QSysInfo::machineHostName().toLower()};
    if (!url.isLocalFile() || !ownNames.contains(url.host()))
        return std::nullopt;
    url.setHost(QString());
    return url;
}

std::optional<QString> decodeUtf8(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace marrowcut
