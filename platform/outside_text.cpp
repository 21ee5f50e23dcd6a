#include "platform/outside_text.h"

#include <QDir>
#include <QStringDecoder>
#include <QStringList>
#include <QSysInfo>

namespace marrowcut
{

namespace
{

/// Whether the character could command a terminal, break the line or make a text show as another.
bool isUnsafe(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control: // C0, DEL and C1
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format: // direction marks and tags among them; joiners only shape letters and emoji
        return character != U'\u200C' && character != U'\u200D';
    default:
        return character >= 0xE0000 && character < 0xE0080; // the rest of the block of tags
    }
}

QString escapeSequence(char32_t character)
{
    switch (character) {
    case U'\n':
        return QStringLiteral("\\n");
    case U'\r':
        return QStringLiteral("\\r");
    case U'\t':
        return QStringLiteral("\\t");
    default:
        return QString::asprintf(character > 0xFFFF ? "\\U%08X"
                                 : character > 0xFF ? "\\u%04X"
                                                    : "\\x%02X",
                                 static_cast<unsigned>(character));
    }
}

QString jsonEscapeSequence(char32_t character)
{
    QString sequence;
    for (const QChar unit : QChar::fromUcs4(character))
        sequence += QString::asprintf("\\u%04x", static_cast<unsigned>(unit.unicode()));
    return sequence;
}

template <typename Escape>
QString withUnsafeEscaped(const QString &text, Escape escape)
{
    QString shown;
    for (const char32_t character : text.toUcs4()) {
        if (isUnsafe(character))
            shown += escape(character);
        else
            shown += QChar::fromUcs4(character);
    }
    return shown;
}

} // namespace

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

QString shownBytes(QByteArrayView bytes)
{
    QString shown;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        shown += value < 0x80 ? QString(QLatin1Char(byte)) : QString::asprintf("\\x%02X", value);
    }
    return shown;
}

QString printable(const QString &text)
{
    return withUnsafeEscaped(text, escapeSequence);
}

QString printableJson(const QString &json)
{
    return withUnsafeEscaped(json, jsonEscapeSequence);
}

} // namespace marrowcut
