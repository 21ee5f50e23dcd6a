#pragma once

#include <QString>

/// Text from outside as it may be printed: every program's output passes through here. Pure.
namespace marrowcut
{

/// Control characters, direction marks and invisible tags are written as escapes (\n, \x1B, \u202E), so that
/// a file's name can neither break the line nor command the terminal nor show as another.
QString printable(const QString &text);

/// The same for JSON text without white space between its values, in JSON's own escapes.
QString printableJson(const QString &json);

} // namespace marrowcut
