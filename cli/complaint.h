#pragma once

#include <QString>

namespace marrowcut::cli
{

/// Tells the user on standard error, in the program's name.
void complain(const QString &problem);

/// What there is to say where the system has no thread to give.
QString noThread();

} // namespace marrowcut::cli
