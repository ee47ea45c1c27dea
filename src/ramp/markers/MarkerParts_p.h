#ifndef MARKERPARTS_P_H
#define MARKERPARTS_P_H

#include <QColor>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QPen>

// What the items of this folder share.

/// What selected markers and all notes are filled with.
inline QColor markerFill(int alpha = 255)
{
    QColor color(QStringLiteral("lightskyblue"));
    color.setAlpha(alpha);
    return color;
}

inline void drawMarkerSelection(QPainter* painter, const QRectF& rect, const QColor& color,
                                double width)
{
    constexpr int Alpha = 96;
    painter->fillRect(rect, markerFill(Alpha));
    painter->setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawRect(rect);
}

/// A fixed marker tells nobody of its place either, and so is not held within its room.
inline void setMarkerMovable(QGraphicsItem* item, bool movable)
{
    item->setFlag(QGraphicsItem::ItemIsMovable, movable);
    item->setFlag(QGraphicsItem::ItemIsSelectable, movable);
    item->setFlag(QGraphicsItem::ItemSendsGeometryChanges, movable);
}

inline bool hasRoom(const QGraphicsItem* item) { return item->parentItem() || item->scene(); }

/// Where a marker may be dragged, in the coordinates of its position. Needs hasRoom().
inline QRectF roomOf(const QGraphicsItem* item)
{
    return item->parentItem() ? item->parentItem()->boundingRect() : item->scene()->sceneRect();
}

#endif
