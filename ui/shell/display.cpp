#include "ui/shell/display.h"

#include <QFileInfo>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace marrowcut
{

namespace
{

/// Qt warns about each display that it cannot open, and then aborts.
void onMessageWithoutDisplay(QtMsgType type, const QMessageLogContext &, const QString &)
{
    if (type != QtFatalMsg)
        return;
    std::fputs("marrowcut: cannot open a display; marrowcut-cli works without one.\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

/// Loading OpenGL takes longer than the rest of the start. These paths exist on Linux where a device draws:
/// the kernel's own, NVIDIA's and those of Windows' subsystem for Linux.
bool hasGraphicsDevice()
{
    constexpr std::array devices = {"/dev/dri", "/dev/nvidiactl", "/dev/dxg"};
    return std::ranges::any_of(devices,
                               [](const char *path) { return QFileInfo::exists(QLatin1String(path)); });
}

bool hasOpenGLHardware()
{
#ifdef Q_OS_LINUX
    if (!hasGraphicsDevice())
        return false;
#endif
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface))
        return false;
    const QByteArray renderer(reinterpret_cast<const char *>(context.functions()->glGetString(GL_RENDERER)));
    return !renderer.contains("llvmpipe") && !renderer.contains("softpipe");
}

} // namespace

NoDisplayGuard::NoDisplayGuard()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) // whoever chose a platform wants Qt's own messages
        qInstallMessageHandler(onMessageWithoutDisplay);
}

NoDisplayGuard::~NoDisplayGuard()
{
    qInstallMessageHandler(nullptr);
}

void setUpDrawing()
{
    // Qt Quick's own text has coloured fringes.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") || qEnvironmentVariableIsSet("QSG_RHI_BACKEND"))
        return;
    if (!hasOpenGLHardware())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace marrowcut
