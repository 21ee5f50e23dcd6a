#pragma once

#include <QString>

/// Text as it can be shown on one line of a terminal. Pure.
namespace marrowcut::cli
{

/// Control characters, direction marks among them, are written as escapes (\n, \x1B), so that a file's
/// name can neither break the line nor command the terminal nor show as another.
QString printable(const QString &text);

/// Number of terminal columns that printable text takes.
int columnWidth(const QString &text);

/// The text, with its middle replaced by an ellipsis where it takes more columns than there are.
QString elidedMiddle(const QString &text, int columns);

/// A bar of the given number of columns, filled by a fraction from 0 to 1.
QString bar(double fraction, int columns);

/// "45%", rounded down: 100 is shown only for what is complete.
QString percentage(double fraction);

} // namespace marrowcut::cli
