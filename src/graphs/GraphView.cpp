#include "GraphView_p.h"

#include "CurveLayer_p.h"

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
    painter.setClipRect(viewport()->rect());
    const QTransform view = viewportTransform();
    const QList<QGraphicsItem*> items = scene()->items(); // in any order, as there is no index
    m_items.assign(items.begin(), items.end());
    std::stable_sort(m_items.begin(), m_items.end(),
                     [](const auto* a, const auto* b) { return a->zValue() < b->zValue(); });
    const auto layer = std::find_if(m_items.begin(), m_items.end(), [](const auto* item) {
        return item->type() == CurveLayer::Type;
    });
    if (layer != m_items.end())
        static_cast<CurveLayer*>(*layer)->paintGround(&painter, viewport()->rect(),
                                                      backgroundBrush());
    else
        painter.fillRect(viewport()->rect(), backgroundBrush());
    const QStyleOptionGraphicsItem option;
    for (QGraphicsItem* item : m_items) {
        if (!item->isVisible())
            continue;
        painter.setWorldTransform(item->sceneTransform() * view);
        item->paint(&painter, &option, viewport());
    }
}
