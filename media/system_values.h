#pragma once

#include <QString>
#include <QStringList>

namespace marrowcut::media
{

/// What the tools are told differently on each operating system.
struct SystemValues {
    QString fontFile;             ///< the monospaced font that text is drawn with
    QStringList hardwareDecoding; ///< options before the input
    QStringList videoEncoder;     ///< options that choose the H.264 encoder; rate options follow
};

SystemValues macOSValues();

/// Without a GPU no hardware decoder helps; "none" keeps the tool from looking for one. veryfast costs
/// about 70 % of the default preset's time for about half a decibel.
SystemValues linuxValues(const QString &fontFile);

/// The row of the system that this program was built for. Looks the font up: some milliseconds.
SystemValues currentSystemValues();

} // namespace marrowcut::media
