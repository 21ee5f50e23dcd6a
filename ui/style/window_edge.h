#pragma once

#include <QColor>
#include <QQuickItem>

namespace marrowcut
{

/// The window's last row and column of pixels, to be placed behind its content. At 1.25x and 1.5x, Qt's
/// software renderer covers them partly or not at all, which leaves them dark.
class WindowEdge : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY colorChanged)
public:
    explicit WindowEdge(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void colorChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    QColor m_color;
};

} // namespace marrowcut
