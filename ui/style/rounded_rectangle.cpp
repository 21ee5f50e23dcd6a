#include "ui/style/rounded_rectangle.h"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>

#include <algorithm>
#include <cmath>

namespace marrowcut
{

RoundedRectangle::RoundedRectangle(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    connect(this, &RoundedRectangle::changed, this, [this] { update(); });
}

void RoundedRectangle::paint(QPainter *painter)
{
    const QPainterPath path = shape(wholePixels(*painter));
    const qreal pixel = 1 / painter->deviceTransform().m11();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    for (qreal reach = m_shadow; reach > 0; --reach) {
        painter->setPen(QPen(QColor(0, 0, 0, 3), 2 * reach));
        painter->drawPath(path.translated(0, 2));
    }
    painter->fillPath(path, m_color);
    if (m_borderWidth > 0) {
        // The clip leaves the inner half of the stroke.
        const qreal width = std::max(pixel, std::round(m_borderWidth / pixel) * pixel);
        painter->setClipPath(path);
        painter->strokePath(path, QPen(m_borderColor, 2 * width));
    }
}

QSGNode *RoundedRectangle::updatePaintNode(QSGNode *node, UpdatePaintNodeData *data)
{
    if (qRound(width()) > 0 && qRound(height()) > 0)
        return QQuickPaintedItem::updatePaintNode(node, data);
    delete node; // Qt would warn about an image of size 0
    return nullptr;
}

QRectF RoundedRectangle::wholePixels(const QPainter &painter) const
{
    const QTransform toPixels = painter.deviceTransform();
    const qreal scale = window()->effectiveDevicePixelRatio();
    const QSize size(painter.device()->width(), painter.device()->height());
    // If the size was rounded up, the first pixel can be outside the item, where it is clipped.
    const QPoint first(size.width() > width() * scale ? 1 : 0, size.height() > height() * scale ? 1 : 0);
    return toPixels.inverted().mapRect(QRectF(first, QPointF(size.width(), size.height())));
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
