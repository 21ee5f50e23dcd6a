#pragma once

#include <QColor>
#include <QPainterPath>
#include <QQuickItem>

namespace marrowcut
{

/// A rounded rectangle that is drawn correctly at every scale, in whole pixels: Qt Quick's software renderer
/// breaks the corners of its own at 1.25x and 1.5x.
class RoundedRectangle : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor NOTIFY changed)
    /// Lies inside the shape; 0 means no border.
    Q_PROPERTY(qreal borderWidth MEMBER m_borderWidth NOTIFY changed)
    /// The width of a soft shadow, drawn inside the item's edges.
    Q_PROPERTY(qreal shadow MEMBER m_shadow NOTIFY changed)
    /// The position of an arrow that points up into the shadow; negative means no arrow.
    Q_PROPERTY(qreal arrowX MEMBER m_arrowX NOTIFY changed)
public:
    explicit RoundedRectangle(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void changed();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QImage drawn(const QSize &pixels, qreal scale) const;
    QPainterPath shape(const QRectF &bounds) const;

    QColor m_color = Qt::transparent;
    QColor m_borderColor = Qt::transparent;
    qreal m_radius = 0;
    qreal m_borderWidth = 0;
    qreal m_shadow = 0;
    qreal m_arrowX = -1;
};

} // namespace marrowcut
