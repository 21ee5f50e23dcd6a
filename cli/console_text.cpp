#include "console_text.h"

#include "platform/outside_text.h"

#include <QList>

#include <algorithm>
#include <cwchar>

namespace marrowcut::cli
{

namespace
{

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
