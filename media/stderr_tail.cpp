#include "media/stderr_tail.h"

namespace marrowcut
{

void StderrTail::append(const QString &text)
{
    for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        m_lines.append(line.left(longestLine));
        if (m_lines.size() > m_maxLines)
            m_lines.removeFirst();
    }
}

} // namespace marrowcut
