#include "GraphView_p.h"

#include <QGraphicsItem>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <algorithm>

void GraphView::show(QGraphicsScene* scene)
{
    setScene(scene);
    connect(scene, &QGraphicsScene::changed, this, &QGraphicsView::updateScene);
}

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
    const QList<QGraphicsItem*> items = scene()->items(); // in any order, as there is no index
    m_items.assign(items.begin(), items.end());
    std::stable_sort(m_items.begin(), m_items.end(),
                     [](const auto* a, const auto* b) { return a->zValue() < b->zValue(); });
    for (QGraphicsItem* item : m_items) {
        if (!item->isVisible())
            continue;
        painter.setWorldTransform(item->sceneTransform() * view);
        item->paint(&painter, &option, viewport());
    }
}
