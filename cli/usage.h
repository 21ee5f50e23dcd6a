#pragma once

#include <QString>
#include <QStringList>

namespace marrowcut::cli
{

/// The text of --help, at most 80 columns wide.
QString helpText();

/// The argument without the dashes that it begins with.
QString withoutDashes(const QString &argument);

/// The error message for an argument that begins with a dash and is not a known option: names the closest
/// option, or how to write a file's name that begins with a dash. Options are given without their dashes.
QString unknownOptionMessage(const QString &argument, const QStringList &knownOptions);

} // namespace marrowcut::cli
