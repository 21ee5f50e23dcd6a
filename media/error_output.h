#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace marrowcut::media
{

/// Splits a stream of bytes, which may arrive in any portions, into lines of text. Each carriage return and
/// each line feed ends a line. Empty lines, lines that are not valid UTF-8 and a last fragment without its
/// separator are never delivered.
class LineSplitter
{
public:
    /// A longer line is dropped whole, so that a child cannot claim memory without limit.
    static constexpr qsizetype longestLine = 1 << 20; // bytes

    /// The lines that these bytes complete, in order.
    QStringList add(QByteArrayView bytes);

private:
    void keepFragment(QByteArrayView fragment);
    void finishLine(QStringList &lines);

    QByteArray m_fragment;
    bool m_tooLong = false;
};

/// The last lines of an encoder's error output, for the detail of a failed job.
class StderrTail
{
public:
    explicit StderrTail(qsizetype maxLines = 25)
        : m_maxLines(maxLines)
    {
    }

    /// A longer line loses its middle: the reason usually stands at its end.
    static constexpr qsizetype longestLine = 4096; // characters

    /// Appends the pieces between line feeds, without the empty ones, and drops the oldest lines beyond
    /// maxLines.
    void append(const QString &text);

    /// Oldest first, at most maxLines.
    const QStringList &lines() const { return m_lines; }
    /// The lines with a line feed between them.
    QString text() const { return m_lines.join(QLatin1Char('\n')); }

private:
    qsizetype m_maxLines;
    QStringList m_lines;
};

} // namespace marrowcut::media
