#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringList>

namespace marrowcut
{

/// Splits a stream of bytes, fed in any portions, into lines of text. Each carriage return and each
/// line feed ends a line. Empty lines, lines that are not valid UTF-8 and a last fragment without
/// its separator are never delivered.
class LineSplitter
{
public:
    /// A line longer than this is dropped whole: the memory that a child can claim is bounded.
    static constexpr qsizetype longestLine = 1 << 20; // bytes

    /// The lines that these bytes complete, in order.
    QStringList feed(QByteArrayView bytes);

private:
    void keepFragment(QByteArrayView fragment);
    void finishLine(QStringList &lines);

    QByteArray m_fragment;
    bool m_tooLong = false;
};

} // namespace marrowcut
