#include "GraphView_p.h"

#include "CurveLayer_p.h"

#include <QGraphicsItem>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <algorithm>

namespace
{

// Qt calls the name out of date, and the raster engine does nothing with it; others still do.
constexpr auto HighQualityAntialiasing = static_cast<QPainter::RenderHint>(0x08);

} // namespace

void GraphView::show(QGraphicsScene* scene)
{
    viewport()->setStyleSheet(QStringLiteral("background: white"));
    setBackgroundBrush(Qt::white); // whatever a sheet of the application says
    // The background covers all of it; filling it before would double the cost.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setRenderHint(HighQualityAntialiasing);
    setScene(scene);
    connect(scene, &QGraphicsScene::changed, this, [this] { viewport()->update(); });
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
    const auto isBelow = [](const auto* a, const auto* b) { return a->zValue() < b->zValue(); };
    for (auto i = m_items.begin(); i != m_items.end(); ++i) // in place, in their order if alike
        std::rotate(std::upper_bound(m_items.begin(), i, *i, isBelow), i, i + 1);
    const auto layer = std::find_if(m_items.begin(), m_items.end(), [](const auto* item) {
        return item->type() == CurveLayer::Type;
    });
    if (layer != m_items.end() && view.isIdentity())
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
