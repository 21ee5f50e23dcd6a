#pragma once

#include <QByteArrayView>
#include <QString>
#include <QUrl>

#include <optional>

namespace marrowcut
{

/// The path from the root; "." and doubled slashes are taken out. ".." stays: where links are involved, only
/// the file system knows what it means.
QString absolutePath(const QString &path);

/// The URL of a file on this computer without a host, which some programs put into it; nothing for any other.
std::optional<QUrl> localFileUrl(QUrl url);

/// The text that the bytes encode; nothing when they are not valid UTF-8. Nothing is replaced or
/// left out (QString::fromUtf8 does both), so encoding the text again gives the same bytes.
std::optional<QString> decodeUtf8(QByteArrayView bytes);

} // namespace marrowcut
