#include "media/error_output.h"

#include "media/numbers.h"
#include "platform/outside_text.h"

#include <QRegularExpression>

#include <algorithm>

namespace marrowcut::media
{

namespace
{

QString shortened(const QString &line)
{
    const QString gap = QStringLiteral(" … ");
    if (line.size() <= StderrTail::longestLine)
        return line;
    const qsizetype half = (StderrTail::longestLine - gap.size()) / 2;
    return line.first(half) + gap + line.last(half);
}

} // namespace

QStringList LineSplitter::add(QByteArrayView bytes)
{
    QStringList lines;
    const auto isSeparator = [](char byte) { return byte == '\r' || byte == '\n'; };
    auto begin = bytes.begin();
    for (;;) {
        const auto separator = std::find_if(begin, bytes.end(), isSeparator);
        keepFragment(QByteArrayView(begin, separator));
        if (separator == bytes.end())
            return lines;
        finishLine(lines);
        begin = separator + 1;
    }
}

void LineSplitter::keepFragment(QByteArrayView fragment)
{
    if (m_fragment.size() + fragment.size() > longestLine)
        m_tooLong = true;
    if (m_tooLong)
        m_fragment.clear();
    else
        m_fragment.append(fragment);
}

void LineSplitter::finishLine(QStringList &lines)
{
    const auto text = decodeUtf8(m_fragment);
    if (text && !text->isEmpty())
        lines.append(*text);
    m_fragment.clear();
    m_tooLong = false;
}

void StderrTail::append(const QString &text)
{
    for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        m_lines.append(shortened(line));
        if (m_lines.size() > m_maxLines)
            m_lines.removeFirst();
    }
}

std::optional<double> parseTimeSeconds(const QString &line)
{
    static const QRegularExpression pattern(QStringLiteral("time=(\\d+):(\\d+):(\\d+\\.\\d+)"));
    const QRegularExpressionMatch match = pattern.match(line); // without one, all it captured is empty
    const auto hours = decimalNumber(match.capturedView(1));
    const auto minutes = decimalNumber(match.capturedView(2));
    const auto seconds = decimalNumber(match.capturedView(3));
    if (!hours || !minutes || !seconds)
        return std::nullopt;
    return *hours * 3600 + *minutes * 60 + *seconds;
}

std::optional<double> parseSpeed(const QString &line)
{
    static const QRegularExpression pattern(QStringLiteral("speed=\\s*([\\d.]+)x"));
    return decimalNumber(pattern.match(line).capturedView(1));
}

std::optional<qint64> parseFrameCount(const QString &line)
{
    static const QRegularExpression pattern(QStringLiteral("^frame=\\s*(\\d+)"));
    return wholeNumber(pattern.match(line).capturedView(1));
}

std::optional<double> remainingTime(double remainingSeconds, const QString &line)
{
    const auto speed = parseSpeed(line);
    if (!speed || !(*speed > 0))
        return std::nullopt;
    return remainingSeconds / *speed;
}

} // namespace marrowcut::media
