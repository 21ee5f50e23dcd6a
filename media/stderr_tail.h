#pragma once

#include <QString>
#include <QStringList>

namespace marrowcut
{

/// The last lines of an encoder's error output, for the detail of a failed job.
class StderrTail
{
public:
    explicit StderrTail(qsizetype maxLines = 25)
        : m_maxLines(maxLines)
    {
    }

    /// Of a line that nobody would read to its end, its beginning is kept.
    static constexpr qsizetype longestLine = 4096; // characters

    /// Appends the pieces between line feeds, without the empty ones; the oldest lines give way.
    void append(const QString &text);

    /// Oldest first, at most maxLines.
    const QStringList &lines() const { return m_lines; }
    /// The lines with a line feed between them.
    QString text() const { return m_lines.join(QLatin1Char('\n')); }

private:
    qsizetype m_maxLines;
    QStringList m_lines;
};

} // namespace marrowcut
