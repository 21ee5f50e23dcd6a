#include "ui/style/window_edge.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGRenderNode>

namespace marrowcut
{

namespace
{

/// Paints past the clip, which ends at a whole number of points.
class EdgeNode : public QSGRenderNode
{
public:
    void update(QQuickItem *item, const QColor &color)
    {
        m_window = item->window();
        m_rect = item->boundingRect();
        m_color = color;
        markDirty(DirtyMaterial);
    }

    void render(const RenderState *state) override
    {
        auto *painter = static_cast<QPainter *>(
            m_window->rendererInterface()->getResource(m_window, QSGRendererInterface::PainterResource));
        const int width = painter->device()->width();
        const int height = painter->device()->height();
        const QTransform toPoints = painter->deviceTransform().inverted();
        painter->save();
        const QRegion dirty = *state->clipRegion(); // only there is the content painted again
        painter->setClipRegion(dirty | dirty.translated(1, 0));
        painter->fillRect(toPoints.mapRect(QRectF(width - 1, 0, 1, height)), m_color);
        painter->setClipRegion(dirty | dirty.translated(0, 1) | dirty.translated(1, 1));
        painter->fillRect(toPoints.mapRect(QRectF(0, height - 1, width, 1)), m_color);
        painter->restore();
    }

    RenderingFlags flags() const override { return BoundedRectRendering; }
    QRectF rect() const override { return m_rect; }

private:
    QQuickWindow *m_window = nullptr;
    QRectF m_rect;
    QColor m_color;
};

} // namespace

WindowEdge::WindowEdge(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &WindowEdge::colorChanged, this, &QQuickItem::update);
}

QSGNode *WindowEdge::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    if (window()->rendererInterface()->graphicsApi() != QSGRendererInterface::Software)
        return nullptr;
    auto *edge = node ? static_cast<EdgeNode *>(node) : new EdgeNode;
    edge->update(this, m_color);
    return edge;
}

} // namespace marrowcut
