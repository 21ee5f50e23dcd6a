#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace marrowcut
{

/// The text that the bytes encode; nothing when they are not valid UTF-8. Nothing is replaced or
/// left out (QString::fromUtf8 does both), so encoding the text again gives the same bytes.
std::optional<QString> decodeUtf8(QByteArrayView bytes);

} // namespace marrowcut
