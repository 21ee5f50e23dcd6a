#pragma once

#include <QString>

namespace marrowcut
{

/// The folder of the application's resources: ../share/marrowcut from the running program's own folder, links
/// resolved, installed or not. Absolute path without a trailing slash; not checked for existence.
QString resourceFolder();

/// Version and build, such as "2.3 (41)", read afresh from the keys in the folder's version.ini:
/// CFBundleShortVersionString, "1.0" where it is missing or no text, and CFBundleVersion, else "1".
QString versionText(const QString &folder = resourceFolder());

/// The file of the font that burned-in text is drawn with: DejaVu Sans Mono or else fontconfig's closest
/// match. Absolute path; empty when there is no font at all. Any thread; takes some milliseconds.
QString monospacedFontFile();

/// The program's name among desktop entries, icons and metainfo.
QString applicationId();

} // namespace marrowcut
