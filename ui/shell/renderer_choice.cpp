#include "ui/shell/renderer_choice.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

namespace marrowcut
{

namespace
{

bool isSoftware(const QByteArray &renderer)
{
    return renderer.contains("llvmpipe") || renderer.contains("softpipe");
}

bool hasOpenGLHardware()
{
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
