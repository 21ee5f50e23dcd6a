#pragma once

#include <QString>

namespace marrowcut
{

/// The file of the font that burned-in text is drawn with: DejaVu Sans Mono as fontconfig finds it,
/// or else what fontconfig holds nearest to it. Absolute path; empty when there is no font at all.
/// Any thread; takes some milliseconds.
QString monospacedFontFile();

} // namespace marrowcut
