#include "media/system_values.h"

#include "platform/resources.h"

namespace marrowcut::media
{

namespace
{

/// Encoders that take frames from memory, so that graph and rate options stay the same.
QList<VideoEncoder> linuxHardwareEncoders()
{
    return {
        {.name = QStringLiteral("h264_nvenc"),
         .devicePaths = {QStringLiteral("/dev/nvidiactl"), QStringLiteral("/sys/module/nvidia"),
                         QStringLiteral("/dev/dxg")}},
        {.name = QStringLiteral("h264_qsv"), .devicePaths = {QStringLiteral("/dev/dri")}},
    };
}

} // namespace

SystemValues SystemValues::with(const VideoEncoder &encoder) const
{
    SystemValues values = *this;
    values.videoEncoder = encoder;
    return values;
}

SystemValues macOSValues()
{
    return {
        QStringLiteral("/System/Library/Fonts/SFNSMono.ttf"),
        {QStringLiteral("-hwaccel"), QStringLiteral("videotoolbox")},
        {.name = QStringLiteral("h264_videotoolbox")},
        {},
    };
}

SystemValues linuxValues(const QString &fontFile)
{
    return {
        fontFile,
        {QStringLiteral("-hwaccel"), QStringLiteral("none")},
        {.name = QStringLiteral("libx264"),
         .options = {QStringLiteral("-preset"), QStringLiteral("veryfast")}},
        linuxHardwareEncoders(),
    };
}

namespace
{

SystemValues rowOfThisSystem([[maybe_unused]] const QString &fontFile)
{
#ifdef Q_OS_MACOS
    return macOSValues();
#else
    return linuxValues(fontFile);
#endif
}

} // namespace

QStringList encoderNames()
{
    const SystemValues system = rowOfThisSystem(QString());
    QStringList names = {system.videoEncoder.name};
    for (const VideoEncoder &encoder : system.hardwareEncoders)
        names.append(encoder.name);
    return names;
}

SystemValues currentSystemValues()
{
    return rowOfThisSystem(monospacedFontFile());
}

} // namespace marrowcut::media
