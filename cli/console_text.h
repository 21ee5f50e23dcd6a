#pragma once

#include <QString>

/// Text as it can be shown on one line of a terminal. Pure.
namespace marrowcut::cli
{

/// Control characters, direction marks and invisible tags are written as escapes (\n, \x1B, \u202E), so that
/// a file's name can neither break the line nor command the terminal nor show as another.
QString printable(const QString &text);

/// The same for JSON text without white space between its values, in JSON's own escapes.
QString printableJson(const QString &json);

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
