#pragma once

#include <QString>

namespace marrowcut::cli
{

/// Prints what "auto" or the name comes to on this machine, after its trials. Runs the event loop; the exit
/// status.
int tellEncoder(const QString &asked);

} // namespace marrowcut::cli
