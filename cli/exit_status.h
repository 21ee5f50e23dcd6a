#pragma once

namespace marrowcut::cli
{

/// What the program's exit status says. Scripts rely on the numbers.
enum ExitStatus {
    allDone = 0,          ///< every clip has its proxy
    someFailed = 1,       ///< at least one clip, an item that was named, or the output failed
    nothingToDo = 2,      ///< wrong usage, or no clips in what was named
    toolMissing = 3,      ///< a tool is not where it belongs, or the named encoder does not work
    wasInterrupted = 130, ///< ended by a signal
};

} // namespace marrowcut::cli
