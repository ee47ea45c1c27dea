#include "GraphView_p.h"

#include <QGraphicsItem>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

void GraphView::paintEvent(QPaintEvent*)
{
    if (!scene())
        return;
    QPainter painter(viewport());
    painter.setRenderHints(renderHints());
    painter.fillRect(viewport()->rect(), backgroundBrush());
    painter.setClipRect(viewport()->rect());
    const QStyleOptionGraphicsItem option;
    const QTransform view = viewportTransform();
    const QList<QGraphicsItem*> items = scene()->items(Qt::AscendingOrder);
    for (QGraphicsItem* item : items) {
        if (!item->isVisible())
            continue;
        painter.setWorldTransform(item->sceneTransform() * view);
        item->paint(&painter, &option, viewport());
    }
}
