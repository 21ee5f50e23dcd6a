#pragma once

namespace marrowcut
{

/// To be called first thing in main(), before the application object exists.
/// - The null device becomes standard input, so that children which inherit it never read a
///   terminal: an encoder takes typed keys for commands and is stopped when in the background.
/// - Where the locale's encoding is not UTF-8, C.UTF-8 takes its place: file names are UTF-8.
void setUpProcess();

} // namespace marrowcut
