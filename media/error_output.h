#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>

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

// What the periodic statistics lines report.

/// The position in the output, in seconds: "time=01:02:03.50" is 3723.5. Nothing for "N/A", for a
/// negative time and for lines that are no statistics.
std::optional<double> parseTimeSeconds(const QString &line);

/// How many times faster than real time: "speed= 1.5x" is 1.5.
std::optional<double> parseSpeed(const QString &line);

/// The number of frames written so far, from a line that begins with "frame=".
std::optional<qint64> parseFrameCount(const QString &line);

/// Seconds left when remainingSeconds of footage go on at the line's speed; nothing when the line
/// reports no speed above 0.
std::optional<double> remainingTime(double remainingSeconds, const QString &line);

} // namespace marrowcut::media
