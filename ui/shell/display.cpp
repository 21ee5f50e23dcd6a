#include "ui/shell/renderer_choice.h"

#include <QFileInfo>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

#include <algorithm>
#include <array>

namespace marrowcut
{

namespace
{

/// Loading OpenGL takes longer than the rest of the start, so a look comes first at where Linux shows devices
/// that draw: the kernel's own, NVIDIA's and those of Windows' subsystem for Linux.
bool showsGraphicsDevice()
{
    constexpr std::array devices = {"/dev/dri", "/dev/nvidiactl", "/dev/dxg"};
    return std::ranges::any_of(devices,
                               [](const char *path) { return QFileInfo::exists(QLatin1String(path)); });
}

bool isSoftware(const QByteArray &renderer)
{
    return renderer.contains("llvmpipe") || renderer.contains("softpipe");
}

bool hasOpenGLHardware()
{
#ifdef Q_OS_LINUX
    if (!showsGraphicsDevice())
        return false;
#endif
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface))
        return false;
    const auto *renderer = reinterpret_cast<const char *>(context.functions()->glGetString(GL_RENDERER));
    return !isSoftware(QByteArray(renderer));
}

} // namespace

void chooseRenderer()
{
    if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") || qEnvironmentVariableIsSet("QSG_RHI_BACKEND"))
        return;
    if (!hasOpenGLHardware())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace marrowcut
