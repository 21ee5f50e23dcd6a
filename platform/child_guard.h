#pragma once

class QProcess;

namespace marrowcut
{

/// Prepares a child process, before it is started, so that it cannot be left behind or be ended by
/// accident:
/// - it dies when the thread that starts it ends, also when this program is killed;
/// - signals that a terminal or a session sends to the whole process group (interrupt, quit, hang-up,
///   terminate) do not reach it. An encoder would answer them by finishing a truncated file. This
///   program takes those signals itself and kills its child.
/// Stopping (Ctrl-Z) and continuing still act on program and child together.
void guardChild(QProcess &process);

} // namespace marrowcut
