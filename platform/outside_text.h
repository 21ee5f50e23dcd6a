#pragma once

#include <QByteArrayView>
#include <QString>
#include <QUrl>

#include <optional>

/// Text from outside: names of files, bytes to decode, and how any of it may be printed.
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

/// Bytes that are no text, in a form that can be shown: all beyond ASCII as \xHH.
QString shownBytes(QByteArrayView bytes);

/// For every output: control characters, direction marks and invisible tags become escapes (\n, \x1B,
/// \u202E), so that a file's name can neither break the line nor command the terminal nor show as another.
QString printable(const QString &text);

/// The same for JSON text without white space between its values, in JSON's own escapes.
QString printableJson(const QString &json);

} // namespace marrowcut
