#include "media/system_values.h"

#include "platform/monospaced_font.h"

namespace marrowcut::media
{

SystemValues macOSValues()
{
    return {
        QStringLiteral("/System/Library/Fonts/SFNSMono.ttf"),
        {QStringLiteral("-hwaccel"), QStringLiteral("videotoolbox")},
        {QStringLiteral("-c:v"), QStringLiteral("h264_videotoolbox")},
    };
}

SystemValues linuxValues(const QString &fontFile)
{
    return {
        fontFile,
        {QStringLiteral("-hwaccel"), QStringLiteral("none")},
        {QStringLiteral("-c:v"), QStringLiteral("libx264"), QStringLiteral("-preset"),
         QStringLiteral("veryfast")},
    };
}

SystemValues currentSystemValues()
{
#ifdef Q_OS_MACOS
    return macOSValues();
#else
    return linuxValues(monospacedFontFile());
#endif
}

} // namespace marrowcut::media
