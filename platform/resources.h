#pragma once

#include <QString>

namespace marrowcut
{

/// The folder of the application's resources: ../share/marrowcut from the running program's own
/// folder, links resolved. The same rule holds in the build tree, for an installed program and for
/// test programs. Absolute path without a trailing slash; not checked for existence.
QString resourceFolder();

/// The version keys that the resource folder carries in version.ini.
struct VersionKeys {
    QString shortVersion; ///< "CFBundleShortVersionString"; "1.0" where it is missing
    QString build;        ///< "CFBundleVersion"; "1" where it is missing

    /// The two together, such as "2.3 (41)".
    QString text() const;
};

/// Reads the keys afresh from the given resource folder.
VersionKeys readVersionKeys(const QString &folder);

/// The file of the font that burned-in text is drawn with: DejaVu Sans Mono as fontconfig finds it,
/// or else the closest match. Absolute path; empty when there is no font at all.
/// Any thread; takes some milliseconds.
QString monospacedFontFile();

/// The program's name among desktop entries, icons and metainfo.
QString applicationId();

} // namespace marrowcut
