#include "media/error_output.h"

#include "platform/outside_text.h"

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

} // namespace marrowcut::media
