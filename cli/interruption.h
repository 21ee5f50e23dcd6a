#pragma once

#include <chrono>
#include <functional>

namespace marrowcut
{
class TerminationSignals;
}

namespace marrowcut::cli
{

/// How long a signal waits for each thread's end.
constexpr std::chrono::milliseconds interruptLimit{800};

/// On a signal: interrupts, then leaves the event loop with wasInterrupted; when the threads have not ended,
/// the whole program at once. Main thread; what is interrupted must live as long as the signals.
void endOnSignal(const TerminationSignals &termination, const std::function<bool()> &interrupt);

} // namespace marrowcut::cli
