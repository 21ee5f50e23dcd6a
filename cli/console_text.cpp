#include "console_text.h"

#include <QList>

#include <algorithm>
#include <cwchar>

namespace marrowcut::cli
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

int columnsOf(char32_t character)
{
    return std::max(wcwidth(static_cast<wchar_t>(character)), 0);
}

QString textOf(const QList<uint> &characters)
{
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()), characters.size());
}

/// How many of the characters, from the first on, fit into the columns.
template <typename Iterator>
qsizetype fitting(Iterator begin, Iterator end, int columns)
{
    const auto firstBeyond = std::find_if(
        begin, end, [&columns](uint character) { return (columns -= columnsOf(character)) < 0; });
    return firstBeyond - begin;
}

} // namespace

QString printable(const QString &text)
{
    return withUnsafeEscaped(text, escapeSequence);
}

QString printableJson(const QString &json)
{
    return withUnsafeEscaped(json, jsonEscapeSequence);
}

QString indentedLines(const QString &text)
{
    QString lines;
    for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        lines += QStringLiteral("    ") + printable(line) + QLatin1Char('\n');
    return lines;
}

int columnWidth(const QString &text)
{
    int columns = 0;
    for (const uint character : text.toUcs4())
        columns += columnsOf(character);
    return columns;
}

QString elidedMiddle(const QString &text, int columns)
{
    if (columnWidth(text) <= columns)
        return text;
    const int kept = std::max(columns - 1, 0);
    const QList<uint> characters = text.toUcs4();
    return textOf(characters.first(fitting(characters.cbegin(), characters.cend(), kept / 2))) +
           QStringLiteral("…") +
           textOf(characters.last(fitting(characters.crbegin(), characters.crend(), kept - kept / 2)));
}

QString bar(double fraction, int columns)
{
    const auto filled = static_cast<int>(std::clamp(fraction, 0.0, 1.0) * columns);
    return QString(filled, QChar(u'█')) + QString(columns - filled, QChar(u'░'));
}

QString percentage(double fraction)
{
    return QStringLiteral("%1%").arg(static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100), 3);
}

} // namespace marrowcut::cli
