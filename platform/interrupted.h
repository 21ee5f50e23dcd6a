#pragma once

namespace marrowcut
{

/// Thrown on a background thread whose work is no longer wanted because the program is quitting.
/// It unwinds the whole of that work without another touch of the file system: only the entry of
/// the thread catches it.
struct Interrupted {
};

} // namespace marrowcut
