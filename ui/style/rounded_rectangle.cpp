#include "ui/style/rounded_rectangle.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>

namespace marrowcut
{

namespace
{

/// Moves its image to a whole pixel of the window: anywhere else, its pixels would be blended with their
/// neighbours.
class PixelAlignedNode : public QSGTransformNode
{
public:
    PixelAlignedNode() { setFlag(UsePreprocess); }

    void preprocess() override
    {
        QPointF position;
        for (QSGNode *node = parent(); node; node = node->parent()) {
            if (node->type() == TransformNodeType)
                position = static_cast<QSGTransformNode *>(node)->matrix().map(position);
        }
        QMatrix4x4 shift;
        shift.translate(QVector3D(QPointF((position * scale).toPoint()) / scale - position));
        if (shift == matrix())
            return;
        setMatrix(shift);
        markDirty(DirtyMatrix);
    }

    qreal scale = 1; // pixels for each unit of length
    QSGImageNode *image = nullptr;
};

} // namespace

RoundedRectangle::RoundedRectangle(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &RoundedRectangle::changed, this, &QQuickItem::update);
}

void RoundedRectangle::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

QSGNode *RoundedRectangle::updatePaintNode(QSGNode *old, UpdatePaintNodeData * /*data*/)
{
    const qreal scale = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * scale).toSize();
    if (pixels.isEmpty()) {
        delete old;
        return nullptr;
    }
    auto *node = static_cast<PixelAlignedNode *>(old);
    if (!node) {
        node = new PixelAlignedNode;
        node->image = window()->createImageNode();
        node->image->setFiltering(QSGTexture::Nearest);
        node->image->setOwnsTexture(true);
        node->appendChildNode(node->image);
    }
    node->scale = scale;
    node->image->setTexture(window()->createTextureFromImage(drawn(pixels, scale)));
    node->image->setRect(QRectF({0, 0}, QSizeF(pixels) / scale));
    return node;
}

QImage RoundedRectangle::drawn(const QSize &pixels, qreal scale) const
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QPainterPath path = shape(QRectF({0, 0}, QSizeF(pixels) / scale));
    painter.setRenderHint(QPainter::Antialiasing);
    for (qreal reach = m_shadow; reach > 0; --reach)
        painter.strokePath(path.translated(0, 2), QPen(QColor(0, 0, 0, 3), 2 * reach));
    painter.fillPath(path, m_color);
    if (m_borderWidth > 0) {
        // The clip leaves the inner half of the stroke.
        const qreal width = std::max(1.0, std::round(m_borderWidth * scale)) / scale;
        painter.setClipPath(path);
        painter.strokePath(path, QPen(m_borderColor, 2 * width));
    }
    return image;
}

QPainterPath RoundedRectangle::shape(const QRectF &bounds) const
{
    const QRectF rectangle = bounds.adjusted(m_shadow, m_shadow, -m_shadow, -m_shadow);
    const qreal radius = std::min({m_radius, rectangle.width() / 2, rectangle.height() / 2});
    QPainterPath path;
    path.addRoundedRect(rectangle, radius, radius);
    if (m_arrowX < 0)
        return path;
    QPainterPath arrow;
    const qreal size = std::min(m_shadow, 7.0);
    arrow.addPolygon(QPolygonF{
        {{m_arrowX - size, m_shadow + 1}, {m_arrowX, m_shadow - size}, {m_arrowX + size, m_shadow + 1}}});
    return path.united(arrow);
}

} // namespace marrowcut
