#pragma once

#include <QString>

/// Text as it can be shown on one line of a terminal. Pure.
namespace marrowcut::cli
{

/// The lines of a text, empty ones left out, each printable, indented and ended by a line feed.
QString indentedLines(const QString &text);

/// Number of terminal columns that printable text takes.
int columnWidth(const QString &text);

/// The text, its middle replaced by an ellipsis where it takes more columns than given.
QString elidedMiddle(const QString &text, int columns);

/// A bar of the given number of columns, filled by a fraction from 0 to 1.
QString bar(double fraction, int columns);

/// "45%", rounded down, so that only what is complete shows 100, in four columns.
QString percentage(double fraction);

} // namespace marrowcut::cli
